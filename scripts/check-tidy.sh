#!/usr/bin/env bash
# Fails when clang-tidy (.clang-tidy) finds anything in the library's sources.
# Uses the compile database of a configured build (default build/release).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
command -v run-clang-tidy >/dev/null || { export DEBIAN_FRONTEND=noninteractive; apt-get update -qq; apt-get install -y -qq clang-tidy; }
[ -f "$build/compile_commands.json" ] || { echo "tidy: no $build/compile_commands.json (configure first)" >&2; exit 2; }
# The database holds g++'s options: clang needs sized deallocation named and
# g++-only warning options ignored.
run-clang-tidy -p "$build" -j 2 -quiet -extra-arg=-fsized-deallocation -extra-arg=-Wno-unknown-warning-option \
  "$PWD/MabRixCommandModel/.*\.cpp\$" >"$build/tidy.log" 2>&1 || { grep -E "error:|warning:" "$build/tidy.log" >&2 || cat "$build/tidy.log" >&2; exit 1; }
echo "tidy: clean"
