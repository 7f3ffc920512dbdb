#!/usr/bin/env bash
# Installs the packages the build, the tests, the benchmarks and the fuzzers need.
# Only what is missing is installed, so a prepared machine pays nothing.
set -euo pipefail

PACKAGES=(
  cmake ninja-build g++ make binutils python3
  clang-format
  clang lld libclang-rt-14-dev
  libgtest-dev libbenchmark-dev
  libre2-dev libmxml-dev
  libicu-dev liblapack-dev libestools-dev libxml2-dev
  gnuplot-nox
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq "${missing[@]}"
