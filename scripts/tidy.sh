#!/usr/bin/env bash
# clang-tidy over every source that the release build compiles, or over those named; a quarter of an hour.
#
#   scripts/tidy.sh [SOURCE ...]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/dependencies.sh checks
cmake --preset release >/dev/null
if (($# == 0)); then
    mapfile -t sources < <(git ls-files '*.cpp')
    set -- "${sources[@]}"
fi
# GCC's own options in the build's commands are none of clang's business.
printf '%s\n' "$@" |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build --quiet --extra-arg=-Wno-unknown-warning-option \
        2> >(grep -v ' warnings generated\.$' >&2)
