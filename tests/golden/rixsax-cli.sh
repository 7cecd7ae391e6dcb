#!/usr/bin/env bash
# Behaviour of rixsax that the golden outputs cannot show: the standard
# error, write errors, other output formats read by their own tools.
# Usage: rixsax-cli.sh CASE RIXSAX (run from the repository's root).
set -uo pipefail
case_name="$1"
rixsax="$2"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

# expect_status STATUS COMMAND...: runs the command, its standard error in
# $work/err and its output in $work/out.
expect_status() {
  local expected="$1"
  shift
  "$@" >"$work/out" 2>"$work/err"
  local status=$?
  [[ "$status" == "$expected" ]] || fail "$* exited $status, expected $expected; stderr: $(cat "$work/err")"
}

expect_stderr() {
  grep -qF -- "$1" "$work/err" || fail "standard error lacks '$1': $(cat "$work/err")"
}

case "$case_name" in
  failed-step-line)
    expect_status 1 "$rixsax" read xml-string-list samples/xml-string-list/vaults.xml
    expect_stderr "rixsax: samples/xml-string-list/vaults.xml: xml-string-list: result 0x80004005; first failed callback StartElement 'vault' at 3:3 (0x80004005)"
    expect_status 1 "$rixsax" read string samples/string/hello.xml
    expect_stderr "rixsax: samples/string/hello.xml: string: result 0x80004005; first check at 3:3: ExpressionCheck:FALSE"
    ;;
  never-started)
    expect_status 1 "$rixsax" read --at nowhere string samples/string/hello.xml
    expect_stderr "rixsax: samples/string/hello.xml: no element to start string on"
    ;;
  full-disk)
    expect_status 4 bash -c "'$rixsax' read object-list samples/object-list/objects.xml >/dev/full"
    expect_stderr "rixsax: cannot write the output: No space left on device"
    [[ $(wc -l <"$work/err") == 1 ]] || fail "more than one line on the standard error"
    ;;
  closed-output)
    expect_status 4 bash -c "'$rixsax' read object-list samples/object-list/objects.xml >&-"
    expect_stderr "rixsax: cannot write the output: Bad file descriptor"
    ;;
  closed-pipe)
    # Far more output than a pipe holds, read by a reader that stops at once.
    args=()
    for _ in $(seq 1 200); do args+=(object-list samples/object-list/objects.xml); done
    expect_status 0 bash -c "set -o pipefail; '$rixsax' read ${args[*]} | head -c 10 >/dev/null"
    [[ ! -s "$work/err" ]] || fail "a closed pipe was reported: $(cat "$work/err")"
    ;;
  directory)
    expect_status 3 "$rixsax" read string samples
    expect_stderr "rixsax: samples: cannot read samples: is a directory"
    ;;
  unreadable)
    expect_status 3 "$rixsax" read string "$work/absent.xml"
    expect_stderr "cannot open $work/absent.xml: No such file or directory"
    ;;
  stdin-twice)
    expect_status 2 "$rixsax" read string - boolean -
    expect_stderr "the standard input (-) is named more than once"
    ;;
  suggestions)
    expect_status 2 "$rixsax" raed string samples/string/hello.xml
    expect_stderr "unknown command 'raed'; did you mean read?"
    expect_status 2 "$rixsax" read objct-list samples/object-list/objects.xml
    expect_stderr "unknown handler 'objct-list'; did you mean object-list?"
    ;;
  version)
    expect_status 0 "$rixsax" --version
    grep -qE '^rixsax [0-9]+\.[0-9]+\.[0-9]+' "$work/out" || fail "no version: $(cat "$work/out")"
    ;;
  progress-forced)
    # Not a terminal: no progress line unless asked for.
    expect_status 0 "$rixsax" read --format summary object-list samples/object-list/objects.xml
    [[ ! -s "$work/err" ]] || fail "progress on a non-terminal: $(cat "$work/err")"
    expect_status 0 "$rixsax" read --progress --format summary object-list samples/object-list/objects.xml
    expect_stderr "objects"
    expect_status 0 "$rixsax" read --no-progress --format summary object-list samples/object-list/objects.xml
    [[ ! -s "$work/err" ]] || fail "progress despite --no-progress: $(cat "$work/err")"
    ;;
  yaml)
    # The text output of every sample the golden cases read.
    while read -r name expected rest; do
      [[ -z "$name" || "$name" == \#* || "$expected" == 2 ]] && continue
      read -r -a words <<<"$rest"
      [[ "${words[0]}" == read ]] || continue
      input=/dev/null
      arguments=(read --format text)
      for ((i = 1; i < ${#words[@]}; i++)); do
        if [[ "${words[$i]}" == "<" ]]; then
          input="${words[$((i + 1))]}"
          i=$((i + 1))
        elif [[ "${words[$i]}" == --format ]]; then
          i=$((i + 1))
        else
          arguments+=("${words[$i]}")
        fi
      done
      "$rixsax" "${arguments[@]}" <"$input" >"$work/$name.yaml" 2>/dev/null
      arguments[2]=json
      "$rixsax" "${arguments[@]}" <"$input" >"$work/$name.yaml.json" 2>/dev/null
    done <tests/golden/cases.txt
    # YAML that reads as the same document as the JSON: every scalar that
    # needed quotes has them.
    python3 - "$work"/*.yaml <<'PYTHON' || fail "text output that is not YAML of the JSON document"
import json, sys, yaml
for path in sys.argv[1:]:
    try:
        text = yaml.safe_load(open(path, encoding="utf-8"))
    except yaml.YAMLError as error:
        sys.exit(f"{path}: {error}")
    if text != json.load(open(path + ".json", encoding="utf-8")):
        sys.exit(f"{path}: the YAML differs from the JSON")
PYTHON
    ;;
  dot)
    expect_status 0 "$rixsax" read --format dot object-list samples/session/objects.xml structure \
      samples/session/structure.xml relationship-list samples/session/relationships.xml
    dot -Tsvg "$work/out" >"$work/out.svg" || fail "dot cannot render the graph"
    grep -q "<svg" "$work/out.svg" || fail "no SVG"
    ;;
  *)
    fail "unknown case $case_name"
    ;;
esac
