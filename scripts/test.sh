#!/usr/bin/env bash
# Builds the library and its tests with the given preset (default: release)
# and runs the whole suite.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-release}"

scripts/setup.sh
cmake --preset "$preset"
cmake --build --preset "$preset" -j2
ctest --preset "$preset" -j2
