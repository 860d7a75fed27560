#!/bin/sh
# Builds the Debian package of the unit's software into BUILD_DIR:
#   packaging/build-deb.sh [BUILD_DIR [extra cmake options...]]
# e.g. packaging/build-deb.sh build-arm64 -DCMAKE_TOOLCHAIN_FILE=packaging/aarch64-linux-gnu.cmake
# Only what the package holds is built (the console, its libraries, the unit's
# translations and pictures), two jobs at a time; the package lands in BUILD_DIR.
set -eu
repo=$(cd "$(dirname "$0")/.." && pwd)
build="${1:-$repo/build}"
[ $# -gt 0 ] && shift
cmake -S "$repo" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
cmake --build "$build" -j2 --target package_contents
cd "$build"
cpack -G DEB
ls -1 "$build"/ductline_*.deb
