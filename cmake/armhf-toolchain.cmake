# armhf-toolchain.cmake - cross-builds for the 32-bit ARM target (hard-float
# EABI) with Debian's arm-linux-gnueabihf compilers. The dependencies are
# Debian's armhf packages installed beside the host's (multiarch), so the
# libraries are found in /usr/lib/arm-linux-gnueabihf. Programs of the build
# (generators, tests) run under qemu-arm.
#   cmake -S . -B build-armhf -DCMAKE_TOOLCHAIN_FILE=cmake/armhf-toolchain.cmake
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
# qemu-arm finds the target's loader and libraries under the host's root
# (/lib/ld-linux-armhf.so.3, /usr/lib/arm-linux-gnueabihf): one consistent
# set. Pointing it at the cross compiler's copies with -L mixes the two sets
# and breaks threads.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)
# The target's own tools for reading its binaries (the export check).
set(CMAKE_NM arm-linux-gnueabihf-nm)
set(CMAKE_OBJDUMP arm-linux-gnueabihf-objdump)
