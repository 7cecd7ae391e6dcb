#!/usr/bin/env bash
# Fuzzes the handlers for N seconds (default 60) with libFuzzer, ASan and
# UBSan, one job. New inputs go to build/fuzz/work; crashing inputs to
# build/fuzz/artifacts (fix the code, then keep the input in fuzz/corpus).
# MERGE=1 afterwards adds the inputs that reach new code to fuzz/corpus.
#   scripts/fuzz.sh [SECONDS] [extra libFuzzer flags...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
shift || true

scripts/setup.sh
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j2 --target mabrix_fuzz_handlers
mkdir -p build/fuzz/work build/fuzz/artifacts
export ASAN_OPTIONS="detect_leaks=1"
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
build/fuzz/fuzz/mabrix_fuzz_handlers build/fuzz/work fuzz/corpus -dict=fuzz/mabrix.dict \
  -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix=build/fuzz/artifacts/ "$@"
if [ "${MERGE:-0}" = 1 ]; then
  build/fuzz/fuzz/mabrix_fuzz_handlers -merge=1 fuzz/corpus build/fuzz/work -dict=fuzz/mabrix.dict
fi
