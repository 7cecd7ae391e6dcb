#!/usr/bin/env bash
# Builds everything and reads the session samples (an object list, its
# structure and its relationships) into one context, printed as text.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release -j2
build/release/tools/rixsax/rixsax read --format text \
  object-list samples/session/objects.xml \
  structure samples/session/structure.xml \
  relationship-list samples/session/relationships.xml
