#!/usr/bin/env bash
# Builds everything and reads the bundled samples.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release -j2
build/release/examples/read_string samples/string/hello.xml message
