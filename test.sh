#!/usr/bin/env bash
# Builds everything and runs the whole test suite; exits with its result.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

scripts/dependencies.sh test

# What a step prints is of interest only where it fails; the builder is quiet by itself.
configure_log=$(mktemp)
trap 'rm -f "$configure_log"' EXIT
cmake --preset release -DTESSEL8_TESTS=ON -DTESSEL8_BENCH=ON >"$configure_log" 2>&1 || {
    cat "$configure_log" >&2
    exit 1
}
# The one thing that the builder says although it is quiet is left out.
cmake --build build -- --quiet | { grep -vxF "ninja: no work to do." || true; }

ctest --test-dir build --output-on-failure -j "$(nproc)"
