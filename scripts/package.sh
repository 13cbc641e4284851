#!/usr/bin/env bash
# Builds the plug-in, the manual and the Debian package, and installs what that needs.
#
#   scripts/package.sh        makes build/tessel8_VERSION_ARCHITECTURE.deb
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/dependencies.sh package

# The first build leaves out what only tests need, and with it their libraries.
options=()
[[ -f build/CMakeCache.txt ]] || options=(-DTESSEL8_TESTS=OFF -DTESSEL8_BENCH=OFF)
cmake --preset release "${options[@]}"
cmake --build build --target tessel8 VantorTesselEcho manual
cd build
cpack -G DEB
