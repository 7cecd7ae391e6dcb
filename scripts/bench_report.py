#!/usr/bin/env python3
"""Renders docs/performance.md and its charts from the results of scripts/bench.sh.

Reads, in <results>: benchmarks-KIND-SIZE.json (Google Benchmark, one file per
document), memory*.txt (rixmem lines), stats-KIND.txt, overwrite-1g.stats and
object-list-300m.stats (rixgen --stats), rows-*.txt (/usr/bin/time lines of the
command-line runs), callgrind-{floor,handler}-KIND.out, settings.txt.
"""
import argparse
import glob
import json
import os
import platform
import re
import statistics
import subprocess
import sys

MiB = 1024 * 1024

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
    "overwrite-file-list": "MabRixSAXHandlerOverwriteFileList (1,000 distinct busid values)",
}

# Targets. Pipeline (cold) over the floor, per kind.
FLOOR_TARGETS = {"object-list": 1.5, "object-details": 1.5, "custom-query": 1.5, "structure-deep": 1.4,
                 "structure-wide": 1.4, "relationship-list": 1.4, "workspace-list": 1.25, "collection-list": 1.25,
                 "overwrite-file-list": 1.25}
HEAP_PER_OBJECT = {"object-list": 600, "object-details": 900}  # others: at most their XML
ALLOCATIONS_PER_OBJECT = {"object-list": 4, "object-details": 4}
INSTRUCTIONS_OVER_EXPAT = {"object-list": 0.35}
SCALING = 0.15
LIBXML2_SPEEDUP, PUGIXML_SPEEDUP = 3.0, 1.5
TEARDOWN_SHARE = 0.10
RIXSAX_OVER_EXPAT = 1.6
JSON_OVER_SUMMARY, OUTPUT_SLACK = 1.3, 32 * MiB
OVERWRITE_1G_PEAK = 32 * MiB
CONTEXT_FACTOR, CONTEXT_SLACK = 1.3, 16 * MiB
TARGET_SIZE = 1000000

FAMILIES = ["floor", "host", "handler-cold", "handler-warm", "libxml2", "pugixml"]


def fmt(n):
    return "{:,}".format(int(n)) if n else "-"


def load_json(path):
    """A Google Benchmark output file; one cut short (a run stopped) keeps its finished benchmarks."""
    text = open(path).read()
    try:
        return json.loads(text)
    except ValueError:
        end = text.rfind("\n    }")
        try:
            return json.loads(text[:end + 6] + "\n  ]\n}") if end > 0 else None
        except ValueError:
            return None


def load_benchmarks(directory):
    """(family, kind, size) -> medians over the repetitions."""
    runs, context = {}, {}
    for path in sorted(glob.glob(os.path.join(directory, "benchmarks-*.json"))):
        data = load_json(path)
        if data is None:
            continue
        context = context or data.get("context", {})
        for b in data["benchmarks"]:
            if b.get("run_type", "iteration") != "iteration" or b.get("error_occurred"):
                continue
            family, kind, size = b.get("run_name", b["name"]).split("/")[:3]
            scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[b["time_unit"]]
            runs.setdefault((family, kind, int(size)), []).append({
                "cpu": b["cpu_time"] * scale, "real": b["real_time"] * scale,
                "iterations": b.get("iterations", 0), "bytes": b.get("doc_bytes", 0),
                "records": b.get("records", 0), "elements": b.get("elements", 0), "entries": b.get("entries"),
                "heap": b.get("heap_bytes"), "teardown": b.get("teardown_s"), "system": b.get("system_s"),
                "faults": b.get("page_faults")})
    results = {}
    for key, reps in runs.items():
        cpus = [r["cpu"] for r in reps]
        median = statistics.median(cpus)
        result = dict(reps[0])
        result.update({
            "cpu": median, "real": statistics.median(r["real"] for r in reps),
            "spread": (max(cpus) - min(cpus)) / median if median else 0, "repetitions": len(reps),
            "iterations": sum(r["iterations"] for r in reps)})
        for field in ("heap", "teardown", "system", "faults"):
            values = [r[field] for r in reps if r[field] is not None]
            result[field] = statistics.median(values) if values else None
        results[key] = result
    return context, results


def load_pairs(path, key="kind"):
    table = {}
    if not os.path.exists(path):
        return table
    for line in open(path):
        fields = line.split()
        if not fields or fields[0] != key:
            continue
        values = dict(zip(fields[0::2], fields[1::2]))
        table.setdefault(values[key], []).append(values)
    return table


def load_stats(path):
    if not os.path.exists(path):
        return {}
    fields = open(path).read().split()
    return {k: int(v) for k, v in zip(fields[0::2], fields[1::2]) if v.isdigit()}


def callgrind_total(path):
    if not os.path.exists(path):
        return None
    for line in open(path):
        if line.startswith("totals:") or line.startswith("summary:"):
            return int(line.split()[1])
    return None


def callgrind_top(path, limit=14):
    """Functions by own instructions from a callgrind output file: (object, function, count, share).
    Functions without symbols (expat's, from a stripped library) are summed per object."""
    if not os.path.exists(path):
        return []
    names = {"ob": {}, "fn": {}}

    def name(kind, value):
        m = re.match(r"\((\d+)\)(?:\s+(.*))?$", value)
        if not m:
            return value
        if m.group(2) is not None:
            names[kind][m.group(1)] = m.group(2)
        return names[kind].get(m.group(1), "?")

    ob = fn = None
    costs, skip = {}, False
    for line in open(path):
        line = line.rstrip("\n")
        if not line:
            continue
        if line[0].isdigit() or line[0] in "+-*":
            if skip:
                skip = False
            elif fn is not None:
                parts = line.split()
                if len(parts) > 1:
                    costs[(ob, fn)] = costs.get((ob, fn), 0) + int(parts[1])
            continue
        skip = False
        key, _, value = line.partition("=")
        if key in ("ob", "cob"):
            n = name("ob", value)
            if key == "ob":
                ob = n
        elif key in ("fn", "cfn"):
            n = name("fn", value)
            if key == "fn":
                fn = n
        elif key == "calls":
            skip = True
    grouped = {}
    for (o, f), cost in costs.items():
        obj = os.path.basename(o or "?")
        if re.match(r"^(0x[0-9a-f]+|\?\?\?)", f):
            f = "(functions without symbols)"
        grouped[(obj, f)] = grouped.get((obj, f), 0) + cost
    total = sum(grouped.values()) or 1
    rows = sorted(grouped.items(), key=lambda item: -item[1])[:limit]
    return [(obj, f if len(f) <= 100 else f[:97] + "...", cost, cost * 100.0 / total) for (obj, f), cost in rows]


def pkg_version(name):
    out = subprocess.run(["dpkg-query", "-W", "-f=${Version}", name], capture_output=True, text=True)
    return out.stdout.strip() or "?"


def machine(context, args):
    cpu, mem = "unknown", ""
    try:
        for line in open("/proc/cpuinfo"):
            if line.startswith("model name"):
                cpu = line.split(":", 1)[1].strip()
                break
        for line in open("/proc/meminfo"):
            if line.startswith("MemTotal"):
                mem = "%.1f GiB" % (int(line.split()[1]) / 1024 / 1024)
    except OSError:
        pass
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True).stdout.splitlines()
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True, text=True).stdout.strip()
    return [
        "- CPU: %s, %s logical cores visible (%s MHz), memory %s" %
        (cpu, context.get("num_cpus", "?"), context.get("mhz_per_cpu", "?"), mem),
        "- System: %s %s; compiler: %s; build: Release (-O3), preset `bench`" %
        (platform.system(), platform.release(), compiler[0] if compiler else "?"),
        "- Expat %s, libxml2 %s, pugixml %s, Google Benchmark %s, valgrind %s" %
        (pkg_version("libexpat1"), pkg_version("libxml2"), pkg_version("libpugixml1v5"),
         pkg_version("libbenchmark1debian"), pkg_version("valgrind")),
        "- Run: %s; load average before %s, after %s" % (context.get("date", "?"), args.load_before, args.load_after),
        "- Commit: %s" % commit,
    ] + invocations(args.results)


def invocations(directory):
    """The script's runs that made these results (several may have run side by side)."""
    path = os.path.join(directory, "invocations.txt")
    if not os.path.exists(path):
        return []
    starts, ends, commits = {}, {}, {}
    for line in open(path):
        fields = line.split()
        if len(fields) >= 4:
            (starts if fields[0] == "start" else ends)[fields[3]] = fields[1]
        if len(fields) >= 6:
            commits[fields[3]] = fields[5]
    return ["- Parts of the script run (UTC): " + "; ".join(
        "%s %s-%s (commit %s)" % (stages.replace(",", ", "), start, ends.get(stages, "stopped"),
                                  commits.get(stages, "?")) for stages, start in starts.items())]


class Report:
    def __init__(self, args):
        self.args = args
        d = args.results
        self.context, self.results = load_benchmarks(d)
        self.memory, self.rows = {}, {}
        for path in sorted(glob.glob(os.path.join(d, "memory*.txt"))):
            self.memory.update({k: v[-1] for k, v in load_pairs(path).items()})
        for path in sorted(glob.glob(os.path.join(d, "rows-*.txt"))):
            self.rows.update(load_pairs(path, "row"))
        self.settings = dict(zip(*[iter(open(os.path.join(d, "settings.txt")).read().split())] * 2)) \
            if os.path.exists(os.path.join(d, "settings.txt")) else {}
        self.stats = {k: load_stats(os.path.join(d, "stats-%s.txt" % k)) for k in KINDS}
        self.instructions = {}
        for kind in KINDS:
            floor = callgrind_total(os.path.join(d, "callgrind-floor-%s.out" % kind))
            handler = callgrind_total(os.path.join(d, "callgrind-handler-%s.out" % kind))
            if floor and handler:
                self.instructions[kind] = (floor, handler)
        self.sizes = sorted({s for (_, _, s) in self.results})
        self.out = []
        self.missed = set()     # kinds whose time or instruction targets were missed
        self.missed_memory = set()

    def w(self, line=""):
        self.out.append(line)

    def get(self, family, kind, size):
        return self.results.get((family, kind, size))

    def largest(self, kind):
        sizes = [s for s in self.sizes if ("handler-cold", kind, s) in self.results]
        return sizes[-1] if sizes else None

    # --- measures -------------------------------------------------------
    def per_object(self, family, kind, size):
        r = self.get(family, kind, size)
        return r["cpu"] / r["records"] * 1e9 if r and r["records"] else None

    def over_floor(self, family, kind, size):
        r, f = self.get(family, kind, size), self.get("floor", kind, size)
        return r["cpu"] / f["cpu"] if r and f else None

    def result_memory(self, kind):
        """Bytes the result holds after the parse: the larger of heap in use and resident growth."""
        m = self.memory.get(kind)
        if not m:
            return None
        return max(int(m["result_heap_bytes"]), int(m.get("result_rss_bytes", 0)))

    def records(self, kind):
        return self.stats.get(kind, {}).get("records")

    def row_seconds(self, name, field="cpu"):
        rows = [r for r in self.rows.get(name, []) if "failed" not in r and "user_s" in r]
        if not rows:
            return None
        if field == "cpu":
            return statistics.median(float(r["user_s"]) + float(r["system_s"]) for r in rows)
        if field == "peak":
            return max(int(r["peak_rss_kib"]) * 1024 for r in rows)
        return statistics.median(float(r["elapsed_s"]) for r in rows)

    def row_label(self, name):
        s = self.settings
        files = {"object-list-300m": "object list of %s" % s.get("rixsax_objects", "?").replace("M", " MiB"),
                 "overwrite-200k": "overwrite list of %s entries" % fmt(s.get("rixsax_entries", 0)),
                 "object-list-200k": "object list of %s objects" % fmt(s.get("summary_objects", 0)),
                 "overwrite-1g": "overwrite list of %s, 1,000 distinct busid, from a pipe" %
                                 s.get("big_overwrite", "?").replace("G", " GiB").replace("M", " MiB")}
        m = re.match(r"(rixsax|expat)-(.*?)(?:-(summary|json|text))?$", name)
        if not m or m.group(2) not in files:
            return name
        if m.group(1) == "expat":
            return "expat, do-nothing callbacks (`rixmem --no-count floor`), %s" % files[m.group(2)]
        return "`rixsax read --format %s`, %s" % (m.group(3) or "summary", files[m.group(2)])

    def row_failed(self, name):
        return any("failed" in r for r in self.rows.get(name, []))

    # --- targets --------------------------------------------------------
    def target(self, text, figure, ok, kind=None, memory=False):
        if ok is None:
            self.w("| %s | not measured | **missed** |" % text)
        else:
            self.w("| %s | %s | %s |" % (text, figure, "met" if ok else "**missed**"))
        if kind and not ok:
            (self.missed_memory if memory else self.missed).add(kind)

    def targets(self):
        w = self.w
        w("## Targets")
        w("")
        w("All figures of this table come from the same run. Sizes are 1,000,000 records unless the row says")
        w("otherwise (a smaller size means the full size did not fit the run; see \"How it is measured\").")
        w("")
        w("| Target | Figure | Verdict |")
        w("|---|---|---|")
        for kind in KINDS:
            records, result, stats = self.records(kind), self.result_memory(kind), self.stats.get(kind, {})
            if kind in HEAP_PER_OBJECT:
                limit = HEAP_PER_OBJECT[kind]
                figure = result / records if result is not None and records else None
                self.target("%s: result memory <= %d bytes/object (%s records)" %
                            (kind, limit, fmt(records or 0)),
                            "%.0f bytes/object (%.2f per XML byte)" % (figure, result / stats["bytes"])
                            if figure else "", figure <= limit if figure else None, kind, True)
            else:
                per_byte = result / stats["bytes"] if result is not None and stats.get("bytes") else None
                self.target("%s: result memory <= its XML (%s records)" % (kind, fmt(records or 0)),
                            "%.2f per XML byte (%.0f bytes/object)" % (per_byte, result / records)
                            if per_byte is not None else "", per_byte <= 1.0 if per_byte is not None else None,
                            kind, True)
        for kind, limit in ALLOCATIONS_PER_OBJECT.items():
            m, records = self.memory.get(kind), self.records(kind)
            figure = int(m["allocations"]) / records if m and records and "allocations" in m else None
            self.target("%s: heap allocations per object <= %d" % (kind, limit),
                        "%.1f" % figure if figure is not None else "", figure <= limit if figure is not None else None,
                        kind, True)
        for kind, limit in FLOOR_TARGETS.items():
            size = self.largest(kind)
            r = self.over_floor("handler-cold", kind, size) if size else None
            self.target("%s: pipeline (cold) / floor <= %.2f (%s records)" % (kind, limit, fmt(size or 0)),
                        "%.2f" % r if r else "", r <= limit if r else None, kind)
        for kind, limit in INSTRUCTIONS_OVER_EXPAT.items():
            if kind in self.instructions:
                floor, handler = self.instructions[kind]
                r = (handler - floor) / floor
                self.target("%s: instructions of the library over expat's own <= %.2fx (10,000 records)" %
                            (kind, limit), "%.2fx" % r, r <= limit, kind)
            else:
                self.target("%s: instructions of the library over expat's own <= %.2fx" % (kind, limit), "", None,
                            kind)
        for kind in KINDS:
            size = self.largest(kind)
            for family in ("handler-cold", "handler-warm"):
                a = self.per_object(family, kind, 10000)
                b = self.per_object(family, kind, size) if size and size > 10000 else None
                spread = b / a - 1 if a and b else None
                self.target("%s (%s): ns/object from 10,000 to %s within %d%%" %
                            (kind, family.split("-")[1], fmt(size or 0), SCALING * 100),
                            "%+.1f%%" % (spread * 100) if spread is not None else "",
                            abs(spread) <= SCALING if spread is not None else None, kind)
        size = self.largest("object-list")
        h = self.get("handler-cold", "object-list", size) if size else None
        for tree, limit in (("libxml2", LIBXML2_SPEEDUP), ("pugixml", PUGIXML_SPEEDUP)):
            t = self.get(tree, "object-list", size) if size else None
            speed = t["cpu"] / h["cpu"] if t and h else None
            self.target("object-list: at least %.1fx faster than the %s tree (%s records, cold)" %
                        (limit, tree, fmt(size or 0)), "%.2fx" % speed if speed else "",
                        speed >= limit if speed else None, "object-list")
            mh, mt = self.memory.get("object-list"), self.memory.get(tree)
            if mh and mt:
                ph, pt = int(mh["peak_rss_kib"]) * 1024, int(mt["peak_rss_kib"]) * 1024
                self.target("object-list: less peak memory than the %s tree (%s objects)" % (tree, fmt(mh["entries"])),
                            "%.0f MiB against %.0f MiB" % (ph / MiB, pt / MiB), ph < pt, "object-list", True)
            else:
                self.target("object-list: less peak memory than the %s tree" % tree, "", None, "object-list", True)
        td = h["teardown"] / h["cpu"] if h and h.get("teardown") is not None else None
        self.target("object-list: destroying the context <= %d%% of reading it (%s records)" %
                    (TEARDOWN_SHARE * 100, fmt(size or 0)),
                    "%.1f%% (%.0f ms against %.0f ms)" % (td * 100, h["teardown"] * 1e3, h["cpu"] * 1e3)
                    if td is not None else "", td <= TEARDOWN_SHARE if td is not None else None, "object-list")
        rixsax = self.row_seconds("rixsax-object-list-200k-summary")
        expat = self.row_seconds("expat-object-list-200k")
        r = rixsax / expat if rixsax and expat else None
        self.target("`rixsax read --format summary object-list`, %s objects: process time <= %.1fx bare expat" %
                    (fmt(self.settings.get("summary_objects", 0)), RIXSAX_OVER_EXPAT), "%.2fx (%.2f s against %.2f s)" % (r, rixsax, expat) if r else "",
                    r <= RIXSAX_OVER_EXPAT if r else None)
        for name, label in (("object-list-300m", "object list of %s MB" %
                             fmt(load_stats(os.path.join(self.args.results, "object-list-300m.stats"))
                                 .get("bytes", 0) / 1e6)),
                            ("overwrite-200k", "overwrite list of %s entries" %
                             fmt(self.settings.get("rixsax_entries", 0)))):
            model = self.memory.get("model-" + name)
            limit = int(model["peak_rss_kib"]) * 1024 + OUTPUT_SLACK if model else None
            for fmt_name in ("json", "text"):
                peak = self.row_seconds("rixsax-%s-%s" % (name, fmt_name), "peak")
                failed = self.row_failed("rixsax-%s-%s" % (name, fmt_name))
                self.target("`rixsax read --format %s`, %s: peak <= the model's + 32 MiB" % (fmt_name, label),
                            "failed or timed out" if failed else
                            ("%.0f MiB (limit %.0f MiB)" % (peak / MiB, limit / MiB) if peak and limit else ""),
                            False if failed else (peak <= limit if peak and limit else None))
            summary = self.row_seconds("rixsax-%s-summary" % name)
            json_s = self.row_seconds("rixsax-%s-json" % name)
            r = json_s / summary if json_s and summary else None
            failed = self.row_failed("rixsax-%s-json" % name)
            self.target("`rixsax read --format json`, %s: time <= %.1fx `--format summary`" %
                        (label, JSON_OVER_SUMMARY), "failed or timed out" if failed else
                        ("%.2fx (%.1f s against %.1f s)" % (r, json_s, summary) if r else ""),
                        False if failed else (r <= JSON_OVER_SUMMARY if r else None))
        # Targets of earlier work, kept.
        m = self.memory.get("overwrite-file-list-1g")
        if m:
            peak = int(m["peak_rss_kib"]) * 1024
            self.target("overwrite-file-list, %s streamed, 1,000 distinct busid: peak < 32 MiB" %
                        self.settings.get("big_overwrite", "?").replace("G", " GiB").replace("M", " MiB"),
                        "%.1f MiB" % (peak / MiB), peak < OVERWRITE_1G_PEAK)
        peak = self.row_seconds("rixsax-overwrite-1g", "peak")
        if peak:
            self.target("the same through `rixsax read overwrite-file-list -`: peak < 32 MiB", "%.1f MiB" % (peak / MiB),
                        peak < OVERWRITE_1G_PEAK)
        m = self.memory.get("object-list")
        if m:
            peak, heap = int(m["peak_rss_kib"]) * 1024, self.result_memory("object-list")
            limit = CONTEXT_FACTOR * heap + CONTEXT_SLACK
            self.target("object-list, %s objects: peak < 1.3 x context + 16 MiB" % fmt(m["entries"]),
                        "%.1f MiB (limit %.1f MiB)" % (peak / MiB, limit / MiB), peak < limit)
        model, peak = self.memory.get("model-object-list-300m"), self.row_seconds("rixsax-object-list-300m-summary",
                                                                                   "peak")
        if model and peak:
            heap = max(int(model["result_heap_bytes"]), int(model["result_rss_bytes"]))
            limit = CONTEXT_FACTOR * heap + CONTEXT_SLACK
            self.target("the same through `rixsax read --format summary object-list` (%s; context from rixmem)" %
                        self.settings.get("rixsax_objects", "?").replace("M", " MiB"),
                        "%.1f MiB (limit %.1f MiB)" % (peak / MiB, limit / MiB), peak < limit)
        w("")

    # --- sections -------------------------------------------------------
    def measured(self):
        w, s = self.w, self.settings
        w("## How it is measured")
        w("")
        w("- Documents come from `rixgen` (deterministic; `bench/generator`). All cases of one kind and size read")
        w("  the same bytes, held in memory, in one process (one process per kind and size), one after the other.")
        w("- **floor**: expat alone with do-nothing start, end and text callbacks.")
        w("  **host**: `KelExpatParser` driving the host's do-nothing `KelSAXHandlerBase`.")
        w("  **handler**: the full pipeline: `KelExpatParser`, a root handler, the handler of the response and")
        w("  everything it creates, filling its value or object context. Creating the (empty) context and")
        w("  destroying the result are not in the time; destroying is timed on its own (**teardown**).")
        w("  **libxml2**, **pugixml**: the tree baselines. The library parses the object list into its tree, a")
        w("  walk fills a TNR context with the same entities and properties, and the tree is freed (timed).")
        w("- **cold**: before each iteration the memory freed by the previous one is handed back to the kernel")
        w("  (`malloc_trim`), so the run pays the first touch of every page, as a process reading one response")
        w("  does: this is what a user sees. **warm**: freed memory stays in the process (no trimming, no")
        w("  mapped blocks) and one untimed run comes first, so the iterations reuse memory already touched.")
        w("  The floor, host and tree cases are cold.")
        w("- Repetition, the same rule for every size: each case runs %s times, each time for at least %s s of" %
          (s.get("repetitions", "?"), s.get("min_time", "?")))
        w("  processor time (Google Benchmark's iteration count; one iteration when one takes longer); the figure")
        w("  is the median of the %s, and **spread** is (slowest - fastest) / median." % s.get("repetitions", "?"))
        if s.get("limits", "none") != "none":
            w("- Sizes cut to fit the run's time: %s (kind=largest size timed; memory at that size too)." %
              s["limits"].replace(",", ", "))
        w("- Times are processor time of the process (user + system); ratios are processor-time ratios of the")
        w("  same run. The machine has 2 cores shared with other work: wall-clock and, less so, processor times")
        w("  move with its load (see the load averages above). Instruction and allocation counts do not.")
        w("- **heap**: bytes in use by malloc after the parse minus before it (mallinfo2), per record and per byte")
        w("  of XML. For the floor, the largest heap expat held (its memory suite); for the tree baselines, the")
        w("  heap with the tree and the context both built. `rixmem` also measures resident growth after")
        w("  `malloc_trim` (memory obtained outside malloc); the targets use the larger of the two.")
        w("- **allocations/object**: `rixmem`'s counting `operator new` (every C++ allocation of the process")
        w("  while the handler reads; expat's own buffers come from malloc and are not counted), divided by")
        w("  the records.")
        w("- **instructions**: `valgrind --tool=callgrind` of `rixmem --no-count KIND FILE` over 10,000 records,")
        w("  counting only `MabRixRunHandlerOnStream` (the handler) or `MabRixParseFloorStream` (expat with")
        w("  do-nothing callbacks, the same 64 KiB pieces) and what they call.")
        w("- **peak**: `rixgen KIND --count N | rixmem KIND -`, the handler streaming from a pipe in 64 KiB pieces;")
        w("  peak resident set from getrusage. The tree baselines read the same document from a file.")
        w("- Command-line rows: `/usr/bin/time` of `rixsax read`, output to `/dev/null`.")
        w("")

    def charts(self):
        try:
            import matplotlib
            matplotlib.use("Agg")
            import matplotlib.pyplot as plt
        except ImportError:
            self.w("(matplotlib not available: no charts)")
            self.w("")
            return
        colors = plt.rcParams["axes.prop_cycle"].by_key()["color"]
        made = []
        for name, title, ylabel, value in (
                ("time", "Processor time per record (cold; dashed: the floor of the same kind)", "ns per record",
                 lambda fam, kind, s: self.per_object(fam, kind, s)),
                ("memory", "Heap per record after the parse (dotted: the XML itself; dashed: the floor)",
                 "bytes per record",
                 lambda fam, kind, s: (self.get(fam, kind, s)["heap"] / self.get(fam, kind, s)["records"])
                 if self.get(fam, kind, s) and self.get(fam, kind, s).get("heap") else None)):
            fig, ax = plt.subplots(figsize=(10, 6.5))
            for i, kind in enumerate(KINDS):
                color = colors[i % len(colors)]
                family = "handler-cold"
                for fam, style, label in ((family, "-o", kind), ("floor", "--.", None)):
                    points = [(s, value(fam, kind, s)) for s in self.sizes]
                    points = [(s, v) for s, v in points if v]
                    if points:
                        ax.plot(*zip(*points), style, color=color, label=label, markersize=4,
                                linewidth=1.8 if fam == family else 0.9)
                if name == "memory":
                    points = [(s, self.get("floor", kind, s)["bytes"] / self.get("floor", kind, s)["records"])
                              for s in self.sizes if self.get("floor", kind, s)]
                    if points:
                        ax.plot(*zip(*points), ":", color=color, linewidth=0.9)
            for tree, color in (("libxml2", "black"), ("pugixml", "dimgray")):
                points = [(s, value(tree, "object-list", s)) for s in self.sizes]
                points = [(s, v) for s, v in points if v]
                if points:
                    ax.plot(*zip(*points), "-s", color=color, label="%s tree (object list)" % tree, markersize=4)
            ax.set_xscale("log")
            ax.set_yscale("log")
            ax.set_xlabel("records")
            ax.set_ylabel(ylabel)
            ax.set_title(title, fontsize=10)
            ax.grid(True, which="both", linewidth=0.3)
            ax.legend(fontsize=8, loc="upper left", bbox_to_anchor=(1.01, 1.0))
            fig.tight_layout()
            path = os.path.join(self.args.charts, "performance-%s.svg" % name)
            fig.savefig(path, format="svg", metadata={"Date": None})
            plt.close(fig)
            made.append((name, title))
        self.w("## Charts")
        self.w("")
        for name, title in made:
            self.w("![%s](performance-%s.svg)" % (title, name))
            self.w("")

    def kind_tables(self):
        w = self.w
        for kind in KINDS:
            rows = [s for s in self.sizes if ("floor", kind, s) in self.results]
            if not rows:
                continue
            w("## %s" % kind)
            w("")
            w("Handler: %s." % HANDLERS[kind])
            w("")
            trees = kind == "object-list"
            head = ("| Records | MB | floor MB/s | host / floor | cold MB/s | cold ns/record | warm ns/record | "
                    "cold / floor | warm / floor | spread cold, warm | cold: kernel share, page faults/record | "
                    "heap bytes/record | heap / XML | teardown ms |")
            line = "|" + "---:|" * 14
            if trees:
                head += " libxml2 ns/record | libxml2 / cold | pugixml ns/record | pugixml / cold |"
                line += "---:|" * 4
            w(head)
            w(line)
            for s in rows:
                f, h = self.get("floor", kind, s), self.get("handler-cold", kind, s)
                hw = self.get("handler-warm", kind, s)
                host = self.over_floor("host", kind, s)
                cells = [fmt(s), "%.1f" % (f["bytes"] / 1e6), "%.0f" % (f["bytes"] / f["cpu"] / 1e6),
                         "%.2f" % host if host else "-"]
                if h:
                    cells += ["%.0f" % (h["bytes"] / h["cpu"] / 1e6), "%.0f" % self.per_object("handler-cold", kind, s),
                              "%.0f" % self.per_object("handler-warm", kind, s) if hw else "-",
                              "%.2f" % self.over_floor("handler-cold", kind, s),
                              "%.2f" % self.over_floor("handler-warm", kind, s) if hw else "-",
                              "%.0f%%, %s" % (h["spread"] * 100, "%.0f%%" % (hw["spread"] * 100) if hw else "-"),
                              "%.0f%%, %.2f" % (h["system"] / h["cpu"] * 100, h["faults"] / h["records"])
                              if h.get("system") is not None and h.get("faults") is not None else "-",
                              "%.0f" % (h["heap"] / h["records"]) if h.get("heap") is not None else "-",
                              "%.2f" % (h["heap"] / h["bytes"]) if h.get("heap") is not None else "-",
                              "%.1f" % (h["teardown"] * 1e3) if h.get("teardown") is not None else "-"]
                else:
                    cells += ["-"] * 10
                if trees:
                    for tree in ("libxml2", "pugixml"):
                        t = self.get(tree, kind, s)
                        cells += ["%.0f" % self.per_object(tree, kind, s), "%.2f" % (t["cpu"] / h["cpu"])] \
                            if t and h else ["-", "-"]
                w("| " + " | ".join(cells) + " |")
            w("")

    def memory_table(self):
        w = self.w
        w("## Memory, allocations and teardown at the largest size")
        w("")
        w("`rixgen KIND --count N | rixmem KIND -` (tree baselines: `rixmem libxml2|pugixml FILE`), every record key")
        w("distinct (the overwrite file list too, unlike its timing table: the largest result). Result memory:")
        w("heap in use after the parse minus before (mallinfo2) and resident growth after `malloc_trim`;")
        w("allocations: C++ allocations while reading; read and teardown: processor time in `rixmem`.")
        w("")
        w("| Case | Records | XML bytes/record | heap bytes/record | resident bytes/record | heap / XML | "
          "allocations/record | peak MiB | read s | teardown s | teardown / read |")
        w("|---|" + "---:|" * 10)
        ol_records = self.records("object-list")
        for kind in KINDS + ["libxml2", "pugixml"]:
            m = self.memory.get(kind)
            if not m:
                continue
            st = self.stats.get(kind) or self.stats.get("object-list", {})
            records = st.get("records") or ol_records
            xml = int(m.get("bytes", 0)) or st.get("bytes", 0)
            if not records:
                continue
            read, teardown = float(m.get("read_cpu_s", 0)), float(m.get("teardown_cpu_s", 0))
            w("| %s | %s | %.0f | %.0f | %.0f | %.2f | %.1f | %.1f | %.2f | %.3f | %.1f%% |" % (
                kind if kind in KINDS else "%s tree (object list)" % kind, fmt(records), xml / records,
                int(m["result_heap_bytes"]) / records, int(m.get("result_rss_bytes", 0)) / records,
                int(m["result_heap_bytes"]) / xml if xml else 0, int(m.get("allocations", 0)) / records,
                int(m["peak_rss_kib"]) / 1024, read, teardown, teardown / read * 100 if read else 0))
        w("")
        m = self.memory.get("overwrite-file-list-1g")
        if m:
            st = load_stats(os.path.join(self.args.results, "overwrite-1g.stats"))
            w("Overwrite file list of %s, `rixgen overwrite-file-list --bytes %s --distinct 1000 | rixmem"
              " overwrite-file-list -`: %s bytes, %s filedetails elements, %s distinct busid values; peak resident"
              " memory %.1f MiB; the result map holds %s entries (%.2f MiB of heap)." %
              (self.settings.get("big_overwrite", "?"), self.settings.get("big_overwrite", "?"),
               fmt(st.get("bytes", 0)), fmt(st.get("records", 0)), m["entries"], int(m["peak_rss_kib"]) / 1024,
               m["entries"], int(m["result_heap_bytes"]) / MiB))
            w("")

    def instruction_table(self):
        if not self.instructions:
            return
        w = self.w
        w("## Instructions at 10,000 records (callgrind)")
        w("")
        w("| Kind | expat instructions/record | handler instructions/record | library over expat |")
        w("|---|---:|---:|---:|")
        for kind in KINDS:
            if kind in self.instructions:
                floor, handler = self.instructions[kind]
                w("| %s | %s | %s | %.2fx |" % (kind, fmt(floor / 10000), fmt(handler / 10000),
                                                (handler - floor) / floor))
        w("")

    def command_rows(self):
        if not self.rows:
            return
        w = self.w
        w("## The command-line reader")
        w("")
        w("`/usr/bin/time` of `rixsax read HANDLER FILE --at LIST --format F >/dev/null` (processor time is")
        w("user + system; three runs and their median for the summary against expat). The model's own memory is")
        w("`rixmem` reading the same file.")
        w("")
        w("| Run | elapsed s | processor s | peak MiB |")
        w("|---|---:|---:|---:|")
        for name in ("model-object-list-300m", "model-overwrite-200k"):
            m = self.memory.get(name)
            if m:
                w("| `rixmem`, the model alone, %s | - | %.2f | %.1f |" % (
                    self.row_label("rixsax-" + name[6:]).split(", ", 1)[1], float(m["read_cpu_s"]),
                    int(m["peak_rss_kib"]) / 1024))
        for name in self.rows:
            label = self.row_label(name)
            if self.row_failed(name):
                w("| %s | failed or timed out | | |" % label)
                continue
            w("| %s | %.2f | %.2f | %.1f |" % (label, self.row_seconds(name, "elapsed"), self.row_seconds(name),
                                               self.row_seconds(name, "peak") / MiB))
        w("")

    def profiles(self):
        kinds = [k for k in KINDS if k in self.missed or k in self.missed_memory]
        if not kinds:
            return
        w = self.w
        w("## Where it goes (targets missed)")
        w("")
        w("For each kind that misses a target: the functions with the most instructions of their own (callgrind")
        w("at 10,000 records, the handler's run only) and, for the memory targets, the block sizes holding most")
        w("of the result (live C++ allocations after the parse at the largest size, usable size: count).")
        w("")
        for kind in kinds:
            w("### %s" % kind)
            w("")
            if kind in self.instructions:
                floor, handler = self.instructions[kind]
                w("Instructions per record: %s, of which expat with do-nothing callbacks %s." %
                  (fmt(handler / 10000), fmt(floor / 10000)))
                w("")
            rows = callgrind_top(os.path.join(self.args.results, "callgrind-handler-%s.out" % kind))
            if rows:
                w("| Instructions/record | Share | Object | Function |")
                w("|---:|---:|---|---|")
                for obj, symbol, count, share in rows:
                    w("| %s | %.1f%% | %s | `%s` |" % (fmt(count / 10000), share, obj, symbol.replace("|", "\\|")))
                w("")
            m = self.memory.get(kind)
            if m and m.get("live_sizes", "-") != "-" and kind in self.missed_memory:
                w("Live blocks by size: %s." % ", ".join("%s B x %s" % tuple(p.split(":")) if not p.startswith("large")
                                                           else "larger than 64 KiB: %s bytes" % fmt(p.split(":")[1])
                                                           for p in m["live_sizes"].split(",")))
                w("")

    def render(self):
        w = self.w
        w("# Performance")
        w("")
        w("Generated by `scripts/bench.sh` (do not edit by hand; notes that belong here go into")
        w("`docs/performance-notes.md`, which the script appends). Command: `%s`." % self.args.command)
        w("")
        w("## Machine and load")
        w("")
        self.out.extend(machine(self.context, self.args))
        w("")
        self.measured()
        self.targets()
        self.charts()
        self.kind_tables()
        self.memory_table()
        self.instruction_table()
        self.command_rows()
        self.profiles()
        if os.path.exists(self.args.notes):
            w(open(self.args.notes).read().rstrip())
            w("")
        return "\n".join(self.out) + "\n"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--results", required=True)
    parser.add_argument("--load-before", default="?")
    parser.add_argument("--load-after", default="?")
    parser.add_argument("--command", default="scripts/bench.sh")
    parser.add_argument("--charts", default="docs")
    parser.add_argument("--notes", default="docs/performance-notes.md")
    args = parser.parse_args()
    sys.stdout.write(Report(args).render())


if __name__ == "__main__":
    main()
