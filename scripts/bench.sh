#!/usr/bin/env bash
# Benchmarks and memory measurements; regenerates docs/performance.md.
#
#   scripts/bench.sh                 full run (sizes 1,000 to 1,000,000; tens of minutes)
#   scripts/bench.sh --sizes 1000,10000
#                                    the same over other sizes
#   scripts/bench.sh --smoke         every benchmark once at 1,000 records and
#                                    the memory driver on small inputs; no report
#                                    (continuous integration; reuses build/release)
set -euo pipefail
cd "$(dirname "$0")/.."

mode=full
sizes=1000,10000,100000,1000000
while [ $# -gt 0 ]; do
  case "$1" in
    --smoke) mode=smoke ;;
    --sizes) sizes="$2"; shift ;;
    *) echo "usage: scripts/bench.sh [--smoke] [--sizes N,N,...]" >&2; exit 2 ;;
  esac
  shift
done

scripts/setup.sh

if [ "$mode" = smoke ]; then
  cmake --preset release -DMABRIX_BUILD_BENCHMARKS=ON >/dev/null
  cmake --build --preset release -j2 --target mabrix_benchmarks rixgen rixmem
  bin=build/release/bench
  "$bin/mabrix_benchmarks" --mabrix_smoke
  "$bin/rixgen" overwrite-file-list --count 20000 --distinct 100 | "$bin/rixmem" overwrite-file-list -
  if "$bin/rixgen" object-list --count 2000 | "$bin/rixmem" object-list - 2>/dev/null; then :; else
    status=$?
    [ "$status" -eq 2 ] || exit "$status"  # 2: no object list handler yet
  fi
  exit 0
fi

cmake --preset bench >/dev/null
cmake --build --preset bench -j2
bin=build/bench/bench
out=build/bench/results
mkdir -p "$out"

load_before=$(cut -d' ' -f1-3 /proc/loadavg)
"$bin/mabrix_benchmarks" --mabrix_sizes="$sizes" --benchmark_out="$out/benchmarks.json" \
  --benchmark_out_format=json | tee "$out/benchmarks.txt"
load_after=$(cut -d' ' -f1-3 /proc/loadavg)

# Peak memory while each handler streams its largest response from a pipe
# (the document is never held in memory), and the 1 GB overwrite file list
# whose busid values repeat (1,000 distinct: a small result).
largest=${sizes##*,}
: >"$out/memory.txt"
for kind in $("$bin/rixgen" --help | sed -n 's/^  KIND      one of: //p'); do
  if "$bin/rixgen" "$kind" --count "$largest" | "$bin/rixmem" "$kind" - >>"$out/memory.txt" 2>/dev/null; then :; fi
done
"$bin/rixgen" overwrite-file-list --bytes 1G --distinct 1000 --stats 2>"$out/overwrite-1g.stats" |
  "$bin/rixmem" overwrite-file-list - | sed 's/^kind overwrite-file-list/kind overwrite-file-list-1g/' >>"$out/memory.txt"

# The same two measurements through the command-line reader, rixsax.
rixsax=build/bench/tools/rixsax/rixsax
if [ -x "$rixsax" ]; then
  "$bin/rixgen" overwrite-file-list --bytes 1G --distinct 1000 |
    /usr/bin/time -f 'kind rixsax-overwrite-file-list-1g peak_rss_kib %M' -a -o "$out/memory.txt" \
      "$rixsax" read overwrite-file-list - --at overwritefilelist --format summary >"$out/rixsax-overwrite.txt"
  "$bin/rixgen" object-list --count "$largest" |
    /usr/bin/time -f 'kind rixsax-object-list peak_rss_kib %M' -a -o "$out/memory.txt" \
      "$rixsax" read object-list - --at objectlist --format summary >"$out/rixsax-object-list.txt"
fi

python3 scripts/bench_report.py --results "$out" --load-before "$load_before" --load-after "$load_after" \
  --command "scripts/bench.sh --sizes $sizes" >docs/performance.md
echo "docs/performance.md written"
