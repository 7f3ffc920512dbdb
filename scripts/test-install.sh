#!/usr/bin/env bash
# test-install.sh - installs a build into a staging prefix and builds the
# example consumer (examples/consumer/) against it twice: through the CMake
# package and through the pkg-config file; both programs must run.
# Usage: scripts/test-install.sh BUILD_DIR
set -euo pipefail
build=$(cd "$1" && pwd)
source=$(cd "$(dirname "$0")/.." && pwd)
stage=$build/install-test
rm -rf "$stage"
cmake --install "$build" --prefix "$stage/prefix" >/dev/null

# The library, its soname link and the headers in a folder of their own.
lib=$(find "$stage/prefix" -name 'libUtils.so.1' | head -n 1)
[ -n "$lib" ] || { echo "install: no libUtils.so.1"; exit 1; }
soname=$(objdump -p "$lib" | awk '/SONAME/ {print $2}')
[ "$soname" = "libUtils.so.1" ] || { echo "install: SONAME is '$soname'"; exit 1; }
[ -f "$stage/prefix/include/utils/utterance.h" ] || { echo "install: no include/utils/"; exit 1; }
libdir=$(dirname "$lib")

cmake -S "$source/examples/consumer" -B "$stage/cmake" -G Ninja \
  -DCMAKE_PREFIX_PATH="$stage/prefix" >/dev/null
cmake --build "$stage/cmake" >/dev/null
LD_LIBRARY_PATH=$libdir "$stage/cmake/consumer" >/dev/null
echo "install: consumer built with find_package(Utils) runs"

export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046
cc -std=c11 -Wall -Werror -o "$stage/consumer-pc" "$source/examples/consumer/consumer.c" \
  $(pkg-config --cflags --libs utils)
LD_LIBRARY_PATH=$libdir "$stage/consumer-pc" >/dev/null
echo "install: consumer built with pkg-config utils runs"
