#!/usr/bin/env bash
# Installs the packages the build, the tests, the benchmarks and the fuzzers need.
# Only what is missing is installed, so a prepared machine pays nothing.
set -euo pipefail

PACKAGES=(
  cmake ninja-build g++ make binutils python3 pkgconf valgrind
  clang-format
  clang lld libclang-rt-14-dev
  libgtest-dev libbenchmark-dev
  libre2-dev libmxml-dev
  libicu-dev liblapack-dev libestools-dev libxml2-dev
  python3-jieba libfriso-dev friso-dict fortunes-zh
  unicode-data
  gnuplot-nox
)

# --armhf: the cross compilers, qemu-arm and the armhf builds of the
# libraries the library and its tests link (Debian multiarch), for
# make test-armhf.
ARMHF=0
if [ "${1:-}" = "--armhf" ]; then
  ARMHF=1
  PACKAGES=(g++-arm-linux-gnueabihf qemu-user libre2-dev:armhf libmxml-dev:armhf libgtest-dev:armhf)
fi

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
if [ $ARMHF -eq 1 ] && ! dpkg --print-foreign-architectures | grep -qx armhf; then
  $SUDO dpkg --add-architecture armhf
fi

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

export DEBIAN_FRONTEND=noninteractive
# A mirror that is still syncing one index (seen for armhf) fails the update
# as a whole; the install below then says whether what we need is there.
$SUDO apt-get update -qq || [ $ARMHF -eq 1 ]
$SUDO apt-get install -y -qq "${missing[@]}"
