#!/usr/bin/env bash
# Benchmarks and memory measurements; regenerates docs/performance.md and its
# charts (docs/performance-*.svg).
#
#   scripts/bench.sh                  full run (sizes 1,000 to 1,000,000; tens of minutes)
#   scripts/bench.sh --sizes 1000,10000
#                                     the same over other sizes
#   scripts/bench.sh --min-time S --repetitions R
#                                     each case runs R times for at least S CPU
#                                     seconds each (default 0.5 s, 3 times)
#   scripts/bench.sh --limit object-details=100000,custom-query=100000
#                                     time these kinds up to these sizes only
#   scripts/bench.sh --quick          small command-line and streaming files (trying the
#                                     script out; the report says so)
#   scripts/bench.sh --stages callgrind,time,memory,streaming,summary,rixsax,report
#                                     only these parts (default: all, in this order);
#                                     each part replaces its own results in build/bench/results,
#                                     so parts may run side by side in two invocations
#   scripts/bench.sh --smoke          every benchmark once at 1,000 records and
#                                     the memory driver on small inputs; no report
#                                     (continuous integration; reuses build/release)
set -euo pipefail
cd "$(dirname "$0")/.."

mode=full
sizes=1000,10000,100000,1000000
min_time=0.5
repetitions=3
limits=
quick=
stages=callgrind,time,memory,streaming,summary,rixsax,report
# Files of the streaming and command-line measurements.
big_overwrite=1G; rixsax_objects=300M; rixsax_entries=200000; summary_objects=200000
while [ $# -gt 0 ]; do
  case "$1" in
    --smoke) mode=smoke ;;
    --sizes) sizes="$2"; shift ;;
    --min-time) min_time="$2"; shift ;;
    --repetitions) repetitions="$2"; shift ;;
    --limit) limits="$2"; shift ;;
    --stages) stages="$2"; shift ;;
    --quick) quick=" --quick"; big_overwrite=16M; rixsax_objects=10M; rixsax_entries=5000; summary_objects=5000 ;;
    *) echo "usage: scripts/bench.sh [--smoke] [--quick] [--sizes N,N,...] [--min-time S] [--repetitions R]" \
         "[--limit KIND=N,...]" >&2; exit 2 ;;
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
  "$bin/rixgen" object-list --count 2000 | "$bin/rixmem" object-list -
  "$bin/rixgen" object-list --count 2000 | "$bin/rixmem" floor -
  "$bin/rixgen" object-list --count 2000 | "$bin/rixmem" pugixml -
  "$bin/rixgen" object-list --count 2000 | "$bin/rixmem" libxml2 -
  exit 0
fi

cmake --preset bench >/dev/null
cmake --build --preset bench -j2
bin=build/bench/bench
rixsax=build/bench/tools/rixsax/rixsax
out=build/bench/results
data=build/bench/data
mkdir -p "$out" "$data"
stage() { [[ ",$stages," == *",$1,"* ]]; }
kinds=$("$bin/rixgen" --help | sed -n 's/^  KIND      one of: //p')
largest=${sizes##*,}
distinct_for() { [ "$1" = overwrite-file-list ] && echo "--distinct 1000" || true; }
limit_for() {
  local item
  for item in ${limits//,/ }; do
    [ "${item%%=*}" = "$1" ] && { echo "${item#*=}"; return; }
  done
  echo "$largest"
}
log() { echo "[$(date -u +%H:%M:%S)] $*" >&2; }
# Wall-clock seconds, processor seconds (user + system) and peak resident KiB.
timed() {
  local file=$1 name=$2
  shift 2
  /usr/bin/time -f "row $name elapsed_s %e user_s %U system_s %S peak_rss_kib %M" -a -o "$out/rows-$file.txt" "$@"
}

[ "$stages" = report ] || echo "sizes $sizes min_time $min_time repetitions $repetitions limits ${limits:-none}" \
  "big_overwrite $big_overwrite rixsax_objects $rixsax_objects rixsax_entries $rixsax_entries summary_objects $summary_objects" >"$out/settings.txt"
[ "$stages" = report ] || echo "start $(date -u +%H:%M) stages $stages commit $(git rev-parse --short HEAD)" \
  >>"$out/invocations.txt"
if stage time; then
  rm -f "$out"/benchmarks*
  cut -d' ' -f1-3 /proc/loadavg >"$out/load-before.txt"
fi

# 1. Instruction counts at 10,000 records under callgrind: expat alone and
# every handler, each streaming the same file; machine load does not move them.
if stage callgrind && command -v valgrind >/dev/null; then
  rm -f "$out"/callgrind-*
  for kind in $kinds; do
    log "callgrind $kind"
    # shellcheck disable=SC2046
    "$bin/rixgen" "$kind" --count 10000 $(distinct_for "$kind") --output "$data/$kind-10000.xml"
    valgrind -q --tool=callgrind --toggle-collect='MabRixParseFloorStream*' \
      --callgrind-out-file="$out/callgrind-floor-$kind.out" "$bin/rixmem" --no-count floor "$data/$kind-10000.xml" \
      >/dev/null
    valgrind -q --tool=callgrind --toggle-collect='MabRixRunHandlerOnStream*' \
      --callgrind-out-file="$out/callgrind-handler-$kind.out" "$bin/rixmem" --no-count "$kind" \
      "$data/$kind-10000.xml" >/dev/null
    rm -f "$data/$kind-10000.xml"
  done
fi

# 2. Time: one process per document (kind and size), every family side by side.
stage time && for size in ${sizes//,/ }; do
  for kind in $kinds; do
    if [ "$size" -gt "$(limit_for "$kind")" ]; then continue; fi
    # The host layer alone is a diagnostic, not a target: up to 10,000 records.
    families='[a-z0-9-]+'
    [ "$size" -le 10000 ] || families='(floor|handler-cold|handler-warm|libxml2|pugixml)'
    log "benchmarks $kind $size"
    "$bin/mabrix_benchmarks" --mabrix_sizes="$size" --benchmark_filter="^$families/$kind/$size\$" \
      --benchmark_min_time="$min_time" --benchmark_repetitions="$repetitions" \
      --benchmark_out="$out/benchmarks-$kind-$size.json" --benchmark_out_format=json >>"$out/benchmarks.txt"
  done
done
stage time && cut -d' ' -f1-3 /proc/loadavg >"$out/load-after.txt"

# 3. Memory, allocations and teardown: each handler streams its largest
# response from a pipe (the document is never held in memory); the tree
# baselines read the object list from a file. Every record key is distinct
# here (overwrite file list included): the largest result of each kind.
if stage memory; then
  : >"$out/memory.txt"
  for kind in $kinds; do
    size=$(limit_for "$kind")
    log "memory $kind $size"
    "$bin/rixgen" "$kind" --count "$size" --stats 2>"$out/stats-$kind.txt" |
      "$bin/rixmem" "$kind" - >>"$out/memory.txt"
  done
  log "memory of the tree baselines"
  "$bin/rixgen" object-list --count "$(limit_for object-list)" --output "$data/object-list.xml"
  for tree in libxml2 pugixml; do
    "$bin/rixmem" "$tree" "$data/object-list.xml" >>"$out/memory.txt"
  done
  rm -f "$data/object-list.xml"
fi

# 4. A 1 GiB overwrite file list whose busid values repeat (1,000 distinct: a
# small result) streamed through the handler and through rixsax.
if stage streaming; then
  log "streaming: 1 GiB overwrite file list"
  : >"$out/rows-streaming.txt"
  "$bin/rixgen" overwrite-file-list --bytes "$big_overwrite" --distinct 1000 --stats 2>"$out/overwrite-1g.stats" |
    "$bin/rixmem" overwrite-file-list - | sed 's/^kind overwrite-file-list/kind overwrite-file-list-1g/' \
    >"$out/memory-streaming.txt"
  if [ -x "$rixsax" ]; then
    "$bin/rixgen" overwrite-file-list --bytes "$big_overwrite" --distinct 1000 |
      timed streaming rixsax-overwrite-1g "$rixsax" read overwrite-file-list - --at overwritefilelist \
      --format summary >/dev/null || echo "row rixsax-overwrite-1g failed $?" >>"$out/rows-streaming.txt"
  fi
fi

# 5. rixsax's summary of a 200,000-object list against bare expat with
# do-nothing callbacks on the same file: processor time, three runs each.
if stage summary && [ -x "$rixsax" ]; then
  log "summary: 200,000 objects against expat"
  : >"$out/rows-summary.txt"
  "$bin/rixgen" object-list --count "$summary_objects" --output "$data/object-list-200k.xml"
  for run in 1 2 3; do
    timed summary expat-object-list-200k "$bin/rixmem" --no-count floor "$data/object-list-200k.xml" >/dev/null ||
      echo "row expat-object-list-200k failed $?" >>"$out/rows-summary.txt"
    timed summary rixsax-object-list-200k-summary "$rixsax" read object-list "$data/object-list-200k.xml" \
      --at objectlist --format summary >/dev/null ||
      echo "row rixsax-object-list-200k-summary failed $?" >>"$out/rows-summary.txt"
  done
  rm -f "$data/object-list-200k.xml"
fi

# 6. rixsax on an object list of about 300 MB and on 200,000 overwrite
# entries (every busid distinct): summary, JSON and text, each against the
# model's own memory (rixmem on the same file).
if stage rixsax && [ -x "$rixsax" ]; then
  : >"$out/rows-rixsax.txt"
  : >"$out/memory-rixsax.txt"
  "$bin/rixgen" object-list --bytes "$rixsax_objects" --output "$data/object-list-300m.xml" \
    --stats 2>"$out/object-list-300m.stats"
  "$bin/rixgen" overwrite-file-list --count "$rixsax_entries" --output "$data/overwrite-200k.xml" \
    --stats 2>"$out/overwrite-200k.stats"
  for file in object-list-300m:object-list:objectlist overwrite-200k:overwrite-file-list:overwritefilelist; do
    IFS=: read -r name handler at <<<"$file"
    log "rixsax: $name"
    "$bin/rixmem" "$handler" "$data/$name.xml" | sed "s/^kind $handler/kind model-$name/" >>"$out/memory-rixsax.txt"
    for format in summary json text; do
      timed rixsax "rixsax-$name-$format" timeout 900 "$rixsax" read "$handler" "$data/$name.xml" --at "$at" \
        --format "$format" >/dev/null || echo "row rixsax-$name-$format failed $?" >>"$out/rows-rixsax.txt"
    done
  done
  rm -f "$data/object-list-300m.xml" "$data/overwrite-200k.xml"
fi

[ "$stages" = report ] || echo "end $(date -u +%H:%M) stages $stages" >>"$out/invocations.txt"
stage report || exit 0
log "report"
# Debian's python3, which has python3-matplotlib (not another python3 on PATH).
/usr/bin/python3 scripts/bench_report.py --results "$out" --load-before "$(cat "$out/load-before.txt" || echo ?)" \
  --load-after "$(cat "$out/load-after.txt" || echo ?)" \
  --command "scripts/bench.sh --sizes $sizes --min-time $min_time --repetitions $repetitions${limits:+ --limit $limits}$quick" \
  --charts docs >docs/performance.md
echo "docs/performance.md written"
