#!/usr/bin/env bash
# Builds the plug-in as it was at every commit that touched programs, parameters or controllers,
# lets each save a state, and loads that into today's build. Needs half a minute a commit.
#
#   scripts/earlier_states.sh [FIRST_COMMIT]
#
# FIRST_COMMIT is the oldest one to ask, by default the one that brought chunks. A commit that
# does not build is named as such and saved nothing that anyone could have.
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d)
trap 'git worktree remove --force "$work/tree" 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/settings

first=${1:-$(git log --diff-filter=A --format=%H -- src/presets/Chunk.cpp | tail -n 1)}
cmake --preset release >/dev/null
cmake --build build --target VantorTesselEcho state_exchange -j "$(nproc)" >/dev/null
git worktree add --quiet --detach "$work/tree" HEAD

failed=0
for commit in $(git rev-list --reverse "$first^..HEAD" -- src/presets src/midi \
    'src/parameters/ParameterTable.*'); do
    git cat-file -e "$commit:src/presets/Chunk.cpp" 2>/dev/null || continue  # on a branch beside it
    git -C "$work/tree" checkout --quiet "$commit"
    verdict="does not build"
    if cmake -S "$work/tree" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
            -DTESSEL8_TESTS=OFF -DTESSEL8_BENCH=OFF >"$work/log" 2>&1 &&
        cmake --build "$work/build" --target VantorTesselEcho -j "$(nproc)" >>"$work/log" 2>&1; then
        ./build/state_exchange save "$work/build/VantorTesselEcho.so" "$work/state"
        verdict=$(./build/state_exchange check build/VantorTesselEcho.so "$work/state") || failed=1
    fi
    printf '%s  %-28s %s\n' "${commit:0:7}" "$verdict" "$(git log -1 --format=%s "$commit")"
done
exit "$failed"
