#!/usr/bin/env bash
# Fails when a C++ source of the repository is not formatted as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v clang-format >/dev/null || { export DEBIAN_FRONTEND=noninteractive; apt-get update -qq; apt-get install -y -qq clang-format; }
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
echo "format: clean"
