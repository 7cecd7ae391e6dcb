#!/usr/bin/env bash
# Installs the Debian packages the build needs, when they are missing.
set -euo pipefail

packages=(cmake ninja-build g++ clang clang-tidy libclang-rt-14-dev pkg-config libexpat1-dev libgtest-dev
          libgmock-dev libbenchmark-dev libcli11-dev nlohmann-json3-dev libxml2-dev libpugixml-dev python3-matplotlib
          valgrind graphviz python3-yaml doxygen)
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq "${missing[@]}"
fi

# expat parses untrusted server responses: take the distribution's security
# updates (reparse deferral, allocation and amplification limits).
expat_minimum="2.5.0-1+deb12u5"
expat_installed="$(dpkg-query -W -f='${Version}' libexpat1-dev 2>/dev/null || true)"
if [ -z "$expat_installed" ] || dpkg --compare-versions "$expat_installed" lt "$expat_minimum"; then
  echo "Upgrading expat (installed: ${expat_installed:-none})"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --only-upgrade libexpat1 libexpat1-dev
fi
