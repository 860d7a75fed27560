# Cross-compiles for the unit's Raspberry Pi 4 (64-bit Raspberry Pi OS / Debian bookworm)
# with Debian's cross toolchain and the arm64 multiarch Qt and GStreamer packages:
#   dpkg --add-architecture arm64 && apt-get update
#   apt-get install crossbuild-essential-arm64 qemu-user-static qtbase5-dev:arm64 ...
#   cmake -S . -B build-arm64 -DCMAKE_TOOLCHAIN_FILE=packaging/aarch64-linux-gnu.cmake
# The Qt code generators (moc, rcc, lrelease) are the build machine's own; Debian's
# arm64 Qt CMake files already point at them. Tests run through qemu-user.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# Multiarch: the target's libraries and headers live beside the build machine's,
# under /usr/lib/aarch64-linux-gnu and /usr/include/aarch64-linux-gnu.
set(CMAKE_FIND_ROOT_PATH /usr/aarch64-linux-gnu /)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config must read the arm64 .pc files only.
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} /)

# CTest and build-time helpers run target programs under qemu-user; the arm64
# loader and libraries are installed in / by multiarch, so -L / finds them.
find_program(DUCTLINE_QEMU_AARCH64 NAMES qemu-aarch64-static qemu-aarch64)
if(DUCTLINE_QEMU_AARCH64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${DUCTLINE_QEMU_AARCH64} -L /)
endif()
