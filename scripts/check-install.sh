#!/usr/bin/env bash
# Installs a build (default: build/release) into a temporary prefix, then
# builds examples/consumer against the installed CMake package and a small
# program against the pkg-config file, and runs both on the session's
# object list.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build/release}"

prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix/usr" >/dev/null
"$prefix/usr/bin/rixsax" --version

cmake -S examples/consumer -B "$prefix/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix/usr" >/dev/null
cmake --build "$prefix/consumer" -j2 >/dev/null
"$prefix/consumer/read_object_list" samples/session/objects.xml

export PKG_CONFIG_PATH="$prefix/usr/lib/pkgconfig"
# shellcheck disable=SC2046 # the flags are meant to be split
c++ -std=c++20 examples/consumer/read_object_list.cpp -o "$prefix/read_object_list_pc" \
  $(pkg-config --cflags --libs MabRixCommandModel)
"$prefix/read_object_list_pc" samples/session/objects.xml >/dev/null
echo "install check: CMake package and pkg-config file work"
