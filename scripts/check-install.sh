#!/usr/bin/env bash
# Installs a build (default: build/release) into a temporary prefix, then
# builds examples/consumer three ways and runs each on the session's object
# list: against the installed CMake package, against the pkg-config file with
# the compiler at its default C++ standard, and with the source tree as a
# subproject (add_subdirectory).
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build/release}"

prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix/usr" >/dev/null
"$prefix/usr/bin/rixsax" --version

# The headers sit in one folder of the package's own.
test -z "$(find "$prefix/usr/include" -mindepth 1 -maxdepth 1 ! -name MabRix)"
test -z "$(find "$prefix/usr/include/MabRix" -mindepth 1 -type d)"

cmake -S examples/consumer -B "$prefix/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix/usr" >/dev/null
cmake --build "$prefix/consumer" -j2 >/dev/null
"$prefix/consumer/read_object_list" samples/session/objects.xml

export PKG_CONFIG_PATH="$prefix/usr/lib/pkgconfig"
if pkg-config --libs MabRixCommandModel | grep -q rpath; then
  echo "the pkg-config file embeds an rpath" >&2
  exit 1
fi
# shellcheck disable=SC2046 # the flags are meant to be split
c++ examples/consumer/read_object_list.cpp -o "$prefix/read_object_list_pc" \
  $(pkg-config --cflags --libs MabRixCommandModel)
LD_LIBRARY_PATH="$prefix/usr/lib" "$prefix/read_object_list_pc" samples/session/objects.xml >/dev/null

cmake -S examples/consumer -B "$prefix/subproject" -G Ninja -DMABRIX_SOURCE_DIR="$PWD" >/dev/null
cmake --build "$prefix/subproject" -j2 >/dev/null
"$prefix/subproject/read_object_list" samples/session/objects.xml >/dev/null
echo "install check: CMake package, pkg-config file and subproject work"
