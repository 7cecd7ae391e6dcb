#!/usr/bin/env python3
"""Renders docs/performance.md from the results of scripts/bench.sh.

Reads <results>/benchmarks.json (Google Benchmark), <results>/memory.txt
(rixmem lines) and <results>/overwrite-1g.stats (rixgen --stats), and, for
every handler that misses its time target, profiles it with perf when perf
is there.
"""
import argparse
import json
import os
import platform
import re
import shutil
import subprocess
import sys

MiB = 1024 * 1024

# Time targets: full pipeline over the floor.
FLOOR_TARGETS = {
    "object-list": 1.6,
    "object-details": 1.6,
    "workspace-list": 1.25,
    "collection-list": 1.25,
    "overwrite-file-list": 1.25,
}
DOM_TARGET = 2.0       # the object list handler at least this much faster than the tree baseline
SCALING_TARGET = 0.15  # ns per object from 10,000 to 1,000,000 records
OVERWRITE_1G_TARGET = 32 * MiB
CONTEXT_FACTOR, CONTEXT_SLACK = 1.3, 16 * MiB

KINDS = ["object-list", "object-details", "custom-query", "structure-deep", "structure-wide",
         "relationship-list", "workspace-list", "collection-list", "overwrite-file-list"]
HANDLERS = {
    "object-list": "MabRixSAXHandlerObjectList (+ ObjectAttribute, String, Attribute) into a TNR context",
    "object-details": "MabRixSAXHandlerObjectDetailsList into a CAD context",
    "custom-query": "MabRixSAXHandlerCustomQueryResult (+ ObjectAttribute) into its TNR context",
    "structure-deep": "MabRixSAXHandlerStructure over chains of 64 nested objects (context prefilled, untimed)",
    "structure-wide": "MabRixSAXHandlerStructure over one root holding every object (context prefilled, untimed)",
    "relationship-list": "MabRixSAXHandlerRelationshipList (+ Attribute) into a TNR context",
    "workspace-list": "MabRixSAXHandlerWorkspaceListQueryResult",
    "collection-list": "MabRixSAXHandlerCollectionListQueryResult (+ String)",
    "overwrite-file-list": "MabRixSAXHandlerOverwriteFileList",
}


def load_benchmarks(path):
    with open(path) as f:
        data = json.load(f)
    results = {}
    for b in data["benchmarks"]:
        if b.get("error_occurred"):
            continue
        family, kind, size = b["name"].split("/")[:3]
        scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[b["time_unit"]]
        results[(family, kind, int(size))] = {
            "cpu": b["cpu_time"] * scale,
            "real": b["real_time"] * scale,
            "bytes": b.get("doc_bytes", 0),
            "records": b.get("records", 0),
            "elements": b.get("elements", 0),
            "entries": b.get("entries"),
            "iterations": b.get("iterations", 0),
        }
    return data.get("context", {}), results


def load_memory(path):
    memory = {}
    if not os.path.exists(path):
        return memory
    for line in open(path):
        fields = line.split()
        values = dict(zip(fields[0::2], fields[1::2]))
        if "kind" in values:
            memory[values["kind"]] = values
    return memory


def mbps(r):
    return r["bytes"] / r["cpu"] / 1e6


def ratio(a, b):
    return a["cpu"] / b["cpu"]


def verdict(ok):
    return "met" if ok else "**missed**"


def machine(context, args):
    lines = []
    cpu = "unknown"
    try:
        for line in open("/proc/cpuinfo"):
            if line.startswith("model name"):
                cpu = line.split(":", 1)[1].strip()
                break
    except OSError:
        pass
    mem = ""
    try:
        for line in open("/proc/meminfo"):
            if line.startswith("MemTotal"):
                mem = "%.1f GiB" % (int(line.split()[1]) / 1024 / 1024)
    except OSError:
        pass
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True).stdout.splitlines()
    lines.append("- CPU: %s, %s logical cores visible (%s MHz), memory %s" %
                 (cpu, context.get("num_cpus", "?"), context.get("mhz_per_cpu", "?"), mem))
    lines.append("- System: %s %s; compiler: %s; build: Release (-O3), preset `bench`" %
                 (platform.system(), platform.release(), compiler[0] if compiler else "?"))
    lines.append("- Expat %s, libxml2 %s, Google Benchmark %s" % (pkg_version("libexpat1"), pkg_version("libxml2"),
                                                                   pkg_version("libbenchmark1debian")))
    lines.append("- Run: %s; load average before %s, after %s" % (context.get("date", "?"), args.load_before,
                                                                   args.load_after))
    lines.append("- Commit: %s" % subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True,
                                                 text=True).stdout.strip())
    return lines


def pkg_version(name):
    out = subprocess.run(["dpkg-query", "-W", "-f=${Version}", name], capture_output=True, text=True)
    return out.stdout.strip() or "?"


def profile(kind, size, binary):
    """Top symbols of the handler benchmark, or None without perf."""
    if not shutil.which("perf") or not os.path.exists(binary):
        return None
    data = "/tmp/mabrix-bench-%s.perf" % kind
    record = subprocess.run(["perf", "record", "-q", "-F", "2000", "-o", data, binary,
                             "--mabrix_sizes=%d" % size, "--benchmark_filter=^handler/%s/" % kind],
                            capture_output=True, text=True)
    if record.returncode != 0:
        return None
    report = subprocess.run(["perf", "report", "-i", data, "--no-children", "--sort", "dso,symbol", "--stdio",
                             "--percent-limit", "1.5"], capture_output=True, text=True).stdout
    os.remove(data)
    rows = []
    for line in report.splitlines():
        m = re.match(r"\s+([\d.]+)%\s+(\S+)\s+\[\.\]\s+(.*)", line) or \
            re.match(r"\s+([\d.]+)%\s+(\S+)\s+\[k\]\s+(.*)", line)
        if m:
            symbol = m.group(3).strip()
            if len(symbol) > 110:
                symbol = symbol[:107] + "..."
            rows.append("| %s%% | %s | `%s` |" % (m.group(1), m.group(2), symbol.replace("|", "\\|")))
    return rows[:18]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--results", required=True)
    parser.add_argument("--load-before", default="?")
    parser.add_argument("--load-after", default="?")
    parser.add_argument("--command", default="scripts/bench.sh")
    parser.add_argument("--binary", default="build/bench/bench/mabrix_benchmarks")
    parser.add_argument("--notes", default="docs/performance-notes.md")
    args = parser.parse_args()

    context, results = load_benchmarks(os.path.join(args.results, "benchmarks.json"))
    memory = load_memory(os.path.join(args.results, "memory.txt"))
    sizes = sorted({size for (_, _, size) in results})
    out = []
    w = out.append
    w("# Performance")
    w("")
    w("Generated by `scripts/bench.sh` (do not edit by hand; notes that belong here go into")
    w("`docs/performance-notes.md`, which the script appends). Command: `%s`." % args.command)
    w("")
    w("## Machine and load")
    w("")
    out.extend(machine(context, args))
    w("")
    w("## How it is measured")
    w("")
    w("- Documents come from `rixgen` (deterministic; `bench/generator`). All cases of one kind and size read")
    w("  the same bytes, held in memory, in one process, one after the other.")
    w("- **floor**: expat alone with do-nothing start, end and text callbacks.")
    w("  **host**: `KelExpatParser` driving the host's do-nothing `KelSAXHandlerBase`.")
    w("  **handler**: the full pipeline: `KelExpatParser`, a root handler, the handler of the response and")
    w("  everything it creates, filling its value or object context. Creating and destroying the context")
    w("  (and freeing the result) is not timed.")
    w("  **dom**: libxml2 parses the object list into a tree; a walk fills a TNR context with the same")
    w("  entities and properties; the tree is freed (timed).")
    w("- Times are CPU time of the process (user + system), which is what 2 shared cores measure best;")
    w("  MB/s are 10^6 bytes per CPU second. Ratios are CPU-time ratios within the same run.")
    w("- Peak memory: `rixgen KIND --count N | rixmem KIND -`, the handler streaming from a pipe in 64 KiB")
    w("  chunks; peak resident set from getrusage, result heap from mallinfo2 after the parse.")
    w("")

    w("## Summary of targets")
    w("")
    w("| Target | Figure | Verdict |")
    w("|---|---|---|")
    largest = sizes[-1] if sizes else 0
    for kind, target in FLOOR_TARGETS.items():
        h, f = results.get(("handler", kind, largest)), results.get(("floor", kind, largest))
        if h and f:
            r = ratio(h, f)
            w("| %s: pipeline / floor <= %.2f (%s records) | %.2f | %s |" % (kind, target, fmt(largest), r,
                                                                           verdict(r <= target)))
        else:
            w("| %s: pipeline / floor <= %.2f | no handler measured | **missed** |" % (kind, target))
    h, d = results.get(("handler", "object-list", largest)), results.get(("dom", "object-list", largest))
    if h and d:
        speed = d["cpu"] / h["cpu"]
        w("| object-list: at least %.0fx faster than the tree baseline | %.2fx | %s |" % (DOM_TARGET, speed,
                                                                                       verdict(speed >= DOM_TARGET)))
    for kind in KINDS:
        a, b = results.get(("handler", kind, 10000)), results.get(("handler", kind, 1000000))
        if a and b:
            spread = (b["cpu"] / b["records"]) / (a["cpu"] / a["records"]) - 1
            w("| %s: ns/object from 10,000 to 1,000,000 within %d%% | %+.1f%% | %s |" %
              (kind, SCALING_TARGET * 100, spread * 100, verdict(abs(spread) <= SCALING_TARGET)))
    m = memory.get("overwrite-file-list-1g")
    if m:
        peak = int(m["peak_rss_kib"]) * 1024
        w("| overwrite-file-list, 1 GiB streamed, 1,000 distinct busid: peak < 32 MiB | %.1f MiB | %s |" %
          (peak / MiB, verdict(peak < OVERWRITE_1G_TARGET)))
    m = memory.get("object-list")
    if m:
        peak, heap = int(m["peak_rss_kib"]) * 1024, int(m["result_heap_bytes"])
        limit = CONTEXT_FACTOR * heap + CONTEXT_SLACK
        w("| object-list, %s objects: peak < 1.3 x context + 16 MiB | %.1f MiB (limit %.1f MiB) | %s |" %
          (fmt(int(m["entries"])), peak / MiB, limit / MiB, verdict(peak < limit)))
    m = memory.get("rixsax-overwrite-file-list-1g")
    if m:
        peak = int(m["peak_rss_kib"]) * 1024
        w("| the same through `rixsax read overwrite-file-list -`: peak < 32 MiB | %.1f MiB | %s |" %
          (peak / MiB, verdict(peak < OVERWRITE_1G_TARGET)))
    m, base = memory.get("rixsax-object-list"), memory.get("object-list")
    if m and base:
        peak, heap = int(m["peak_rss_kib"]) * 1024, int(base["result_heap_bytes"])
        limit = CONTEXT_FACTOR * heap + CONTEXT_SLACK
        w("| the same through `rixsax read object-list -` (context size from rixmem) | %.1f MiB (limit %.1f MiB) | %s |"
          % (peak / MiB, limit / MiB, verdict(peak < limit)))
    w("")

    missed = []
    for kind in KINDS:
        rows = [s for s in sizes if ("floor", kind, s) in results]
        if not rows:
            continue
        w("## %s" % kind)
        w("")
        w("Handler: %s." % HANDLERS[kind])
        w("")
        has_dom = any(("dom", kind, s) in results for s in rows)
        head = "| Records | MB | floor MB/s | host MB/s | host / floor | handler MB/s | handler ns/object | " \
               "handler Melem/s | handler / floor |"
        line = "|---:|---:|---:|---:|---:|---:|---:|---:|---:|"
        if has_dom:
            head += " dom MB/s | dom / handler |"
            line += "---:|---:|"
        w(head)
        w(line)
        for s in rows:
            f, hst = results[("floor", kind, s)], results.get(("host", kind, s))
            h, d = results.get(("handler", kind, s)), results.get(("dom", kind, s))
            cells = [fmt(s), "%.1f" % (f["bytes"] / 1e6), "%.0f" % mbps(f)]
            cells += ["%.0f" % mbps(hst), "%.2f" % ratio(hst, f)] if hst else ["-", "-"]
            if h:
                cells += ["%.0f" % mbps(h), "%.0f" % (h["cpu"] / h["records"] * 1e9),
                          "%.2f" % (h["elements"] / h["cpu"] / 1e6), "%.2f" % ratio(h, f)]
            else:
                cells += ["-"] * 4
            if has_dom:
                cells += ["%.0f" % mbps(d), "%.2f" % (d["cpu"] / h["cpu"]) if h else "-"] if d else ["-", "-"]
            w("| " + " | ".join(cells) + " |")
        w("")
        m = memory.get(kind)
        if m:
            w("Peak resident memory streaming %s records: %.1f MiB; result heap after the parse: %.1f MiB." %
              (fmt(int(m.get("records", 0) or largest)), int(m["peak_rss_kib"]) / 1024,
               int(m["result_heap_bytes"]) / MiB))
            w("")
        target = FLOOR_TARGETS.get(kind)
        h, f = results.get(("handler", kind, largest)), results.get(("floor", kind, largest))
        if target and h and f and ratio(h, f) > target:
            missed.append(kind)

    m = memory.get("overwrite-file-list-1g")
    if m:
        stats = open(os.path.join(args.results, "overwrite-1g.stats")).read().split()
        stats = dict(zip(stats[0::2], stats[1::2]))
        w("## Memory: 1 GiB overwrite file list")
        w("")
        w("`rixgen overwrite-file-list --bytes 1G --distinct 1000 | rixmem overwrite-file-list -`: %s bytes, %s"
          " filedetails elements, %s distinct busid values. Peak resident memory %.1f MiB; the result map"
          " holds %s entries (%.2f MiB of heap)." % (fmt(int(stats.get("bytes", 0))), fmt(int(stats.get("records", 0))),
                                                     m["entries"], int(m["peak_rss_kib"]) / 1024, m["entries"],
                                                     int(m["result_heap_bytes"]) / MiB))
        w("")

    if missed:
        w("## Where the time goes (targets missed)")
        w("")
        for kind in missed:
            size = max([s for s in sizes if s <= 100000] or [sizes[0]])
            rows = profile(kind, size, args.binary)
            w("### %s, %s records" % (kind, fmt(size)))
            w("")
            if rows is None:
                w("(perf not available: no profile)")
            else:
                w("`perf record` of `mabrix_benchmarks --benchmark_filter=^handler/%s/` (document generation"
                  " included, flat profile, symbols over 1.5%%):" % kind)
                w("")
                w("| Self | Object | Symbol |")
                w("|---:|---|---|")
                out.extend(rows)
            w("")

    if os.path.exists(args.notes):
        w(open(args.notes).read().rstrip())
        w("")
    sys.stdout.write("\n".join(out) + "\n")


def fmt(n):
    return "{:,}".format(n)


if __name__ == "__main__":
    main()
