#!/usr/bin/env bash
# Regenerates the recorded outputs of rixsax (tests/golden/) from the cases
# in tests/golden/cases.txt, with the release build. Review the diff before
# committing: a changed golden output is a changed behaviour.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release -j2 --target rixsax
rixsax=build/release/tools/rixsax/rixsax

while read -r name expected_exit rest; do
  [[ -z "$name" || "$name" == \#* ]] && continue
  read -r -a words <<<"$rest"
  arguments=()
  input=/dev/null
  for ((i = 0; i < ${#words[@]}; i++)); do
    if [[ "${words[$i]}" == "<" ]]; then
      input="${words[$((i + 1))]}"
      i=$((i + 1))
    else
      arguments+=("${words[$i]}")
    fi
  done
  status=0
  "$rixsax" "${arguments[@]}" <"$input" >"tests/golden/$name" 2>/dev/null || status=$?
  if [[ "$status" != "$expected_exit" ]]; then
    echo "$name: rixsax exited $status, the case expects $expected_exit" >&2
  fi
done <tests/golden/cases.txt
git status --short tests/golden
