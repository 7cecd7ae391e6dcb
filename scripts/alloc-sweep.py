#!/usr/bin/env python3
"""Fails every allocation of rixsax in turn and checks what the caller sees.

For each case (a small response read through one handler family, or a
command-line path), rixsax runs once as it is, then again with the Nth
allocation after main failing, N = 1, 2, 3, ..., until a run ends before
its Nth allocation. Each run must give either the complete result (the exit
status and output of the run without failure) or a failure the caller sees:
a non-zero status with a line on the standard error (status 5, out of
memory, for a failed allocation). An abort, a crash, a sanitizer report (a
leak included), a hang, a success with different output or a failure status
with nothing on the standard error fails the sweep.

  scripts/alloc-sweep.py --build build/asan            # every case
  scripts/alloc-sweep.py --build build/asan --small    # the CI subset
  scripts/alloc-sweep.py --build build/asan --table docs/security.md

With --table, the table of outcomes replaces the one between the markers
of that file.
"""

import argparse
import concurrent.futures
import os
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# name, arguments (run from the repository's root)
CASES = [
    ("failure", ["read", "--at", "failure", "failure", "samples/failure/checkout-denied.xml"]),
    ("string", ["read", "--at", "message", "string", "samples/string/hello.xml"]),
    ("boolean", ["read", "boolean", "samples/boolean/islocked.xml"]),
    ("string-list", ["read", "string-list", "samples/string-list/types.xml"]),
    ("string-map", ["read", "string-map", "samples/string-map/properties.xml"]),
    ("string-list-map", ["read", "string-list-map", "samples/string-list-map/access.xml"]),
    ("xml-string-list", ["read", "--item", "vault", "xml-string-list", "samples/xml-string-list/vaults.xml"]),
    ("xml-string-map", ["read", "xml-string-map", "samples/xml-string-map/attributes.xml"]),
    ("xml-string-list-map", ["read", "xml-string-list-map", "samples/xml-string-list-map/attributes.xml"]),
    ("attribute", ["read", "--format-for", "Approvers=string-list", "--format-for", "Material=string",
                   "attribute", "samples/attribute/approvers.xml"]),
    ("object-attribute", ["read", "object-attribute", "samples/object-attribute/bracket.xml"]),
    ("object-list", ["read", "object-list", "samples/object-list/objects.xml"]),
    ("session", ["read", "--format", "text", "object-list", "samples/session/objects.xml", "structure",
                 "samples/session/structure.xml", "relationship-list", "samples/session/relationships.xml"]),
    ("object-details", ["read", "--can-resolve-uuid-conflict", "true", "object-details",
                        "samples/object-details/details.xml"]),
    ("lock-unlock", ["read", "lock-unlock", "samples/lock-unlock/lock.xml"]),
    ("overwrite-file-list", ["read", "overwrite-file-list", "samples/overwrite-file-list/files.xml"]),
    ("collection-list", ["read", "collection-list", "samples/collection-list/collections.xml"]),
    ("custom-query", ["read", "--format", "summary", "custom-query", "samples/custom-query/rows.xml"]),
    ("saved-query", ["read", "saved-query", "samples/saved-query/released-parts.xml"]),
    ("template-list", ["read", "template-list", "samples/template-list/templates.xml"]),
    ("ui-element", ["read", "--element-kind", "menu", "ui-element", "samples/ui-element/menus.xml"]),
    ("workspace-list", ["read", "workspace-list", "samples/workspace-list/workspaces.xml"]),
    ("vault-list", ["read", "vault-list", "samples/vault-list/vaults.xml"]),
    ("truncated", ["read", "--at", "message", "string", "samples/errors/truncated.xml"]),
    ("trace", ["read", "--trace", "--on-check", "continue", "--format", "text", "--at", "message", "string",
               "samples/string/hello.xml"]),
    ("command: handlers", ["handlers"]),
    ("command: help", ["read", "--help"]),
    ("command: version", ["--version"]),
    ("command: unknown option", ["read", "--colour", "string", "samples/string/hello.xml"]),
    ("command: bad format kind", ["read", "--format-for", "Material=number", "attribute",
                                  "samples/attribute/material.xml"]),
]

SMALL = ["string", "object-list", "command: unknown option"]

SANITIZER_MARKS = ("ERROR: AddressSanitizer", "ERROR: LeakSanitizer", "runtime error:", "terminate called",
                   "failed to register TLS destructor")
OUT_OF_MEMORY = 5


def run(rixsax, injector, arguments, number, log, timeout):
    env = dict(os.environ)
    env["ASAN_OPTIONS"] = "verify_asan_link_order=0:detect_leaks=1:exitcode=90:abort_on_error=0"
    env["LSAN_OPTIONS"] = "exitcode=91:suppressions=%s" % os.path.join(ROOT, "tests", "lsan.supp")
    env["UBSAN_OPTIONS"] = "halt_on_error=1:exitcode=92"
    if number:
        env["LD_PRELOAD"] = injector
        env["MABRIX_FAIL_ALLOCATION"] = str(number)
        env["MABRIX_FAIL_ALLOCATION_LOG"] = log
    try:
        done = subprocess.run([rixsax] + arguments, cwd=ROOT, env=env, capture_output=True, timeout=timeout)
        return done.returncode, done.stdout, done.stderr.decode("utf-8", "replace")
    except subprocess.TimeoutExpired:
        return None, b"", "hang"


def judge(reference, outcome, injected):
    """The outcome's class: complete, out of memory, reported, or a problem."""
    status, output, errors = outcome
    if status is None:
        return "hang"
    if any(mark in errors for mark in SANITIZER_MARKS) or status < 0 or status >= 90:
        return "crash, abort or sanitizer report"
    if (status, output) == reference[:2]:
        return "complete"
    if not injected:
        return "differs without a failure"
    if status == 0:
        return "silent success"
    if not errors.strip():
        return "failure without a message"
    if status == OUT_OF_MEMORY:
        return "out of memory"
    return "other failure reported"


GOOD = ("complete", "out of memory", "other failure reported")


def sweep(rixsax, injector, name, arguments, timeout, jobs, limit):
    reference = run(rixsax, injector, arguments, 0, None, timeout)
    counts = {}
    problems = []
    number = 1
    finished = False
    with tempfile.TemporaryDirectory() as scratch, concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        while not finished and number <= limit:
            batch = list(range(number, number + 4 * jobs))
            logs = {n: os.path.join(scratch, "%d.log" % n) for n in batch}
            results = list(pool.map(lambda n: run(rixsax, injector, arguments, n, logs[n], timeout), batch))
            for n, outcome in zip(batch, results):
                injected = os.path.exists(logs[n])
                if not injected:
                    finished = True
                    kind = judge(reference, outcome, False)
                    if kind != "complete":
                        problems.append((n, kind, outcome[2].strip()[:300]))
                    break
                kind = judge(reference, outcome, True)
                counts[kind] = counts.get(kind, 0) + 1
                if kind not in GOOD:
                    problems.append((n, kind, outcome[2].strip()[:300]))
            number += len(batch)
    if not finished:
        problems.append((limit, "more allocations than the limit", ""))
    return counts, problems


def table(rows):
    kinds = ["complete", "out of memory", "other failure reported", "problems"]
    lines = ["| Case | Runs | " + " | ".join(k.capitalize() for k in kinds) + " |",
             "| --- | ---: | " + " | ".join("---:" for _ in kinds) + " |"]
    total = [0] * (len(kinds) + 1)
    for name, counts, problems in rows:
        values = [sum(counts.values())] + [counts.get(k, 0) for k in kinds[:-1]] + [len(problems)]
        total = [a + b for a, b in zip(total, values)]
        lines.append("| %s | " % name + " | ".join(str(v) for v in values) + " |")
    lines.append("| **all** | " + " | ".join("**%d**" % v for v in total) + " |")
    return "\n".join(lines) + "\n"


def replace_table(path, text):
    begin, end = "<!-- alloc-sweep table begin -->\n", "<!-- alloc-sweep table end -->\n"
    with open(path) as f:
        content = f.read()
    head, rest = content.split(begin, 1)
    _, tail = rest.split(end, 1)
    with open(path, "w") as f:
        f.write(head + begin + text + end + tail)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/asan", help="build directory with rixsax and the injector")
    parser.add_argument("--rixsax", help="the rixsax to run (default: in the build directory)")
    parser.add_argument("--injector", help="the injector library (default: in the build directory)")
    parser.add_argument("--small", action="store_true", help="only the CI subset of cases")
    parser.add_argument("--case", action="append", help="only this case (repeatable)")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--timeout", type=float, default=60.0, help="seconds before a run counts as a hang")
    parser.add_argument("--limit", type=int, default=100000, help="most allocations a case may make")
    parser.add_argument("--table", help="write the table of outcomes into this Markdown file")
    options = parser.parse_args()

    build = os.path.join(ROOT, options.build)
    rixsax = options.rixsax or os.path.join(build, "tools", "rixsax", "rixsax")
    injector = options.injector or os.path.join(build, "tools", "failalloc", "libmabrix_failalloc.so")
    chosen = [c for c in CASES if (not options.small or c[0] in SMALL) and (not options.case or c[0] in options.case)]
    rows = []
    failed = False
    for name, arguments in chosen:
        counts, problems = sweep(rixsax, injector, name, arguments, options.timeout, options.jobs, options.limit)
        rows.append((name, counts, problems))
        print("%-26s runs %5d  %s" % (name, sum(counts.values()),
                                      ", ".join("%s %d" % kv for kv in sorted(counts.items()))), flush=True)
        for n, kind, errors in problems:
            failed = True
            print("  N=%d: %s: %s" % (n, kind, errors.replace("\n", " | ")), flush=True)
    print(table(rows), end="")
    if options.table:
        replace_table(os.path.join(ROOT, options.table), table(rows))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
