#!/usr/bin/env bash
# Runs the tests of everything that holds memory under valgrind, the window's on a display of
# their own; ends with an error where it finds a wrong access, an undefined value that decides
# something, or a leak. Needs five minutes. The sound's own tests are left out, for they compute
# minutes of audio; what they run is in the storm, too.
#
#   scripts/memcheck.sh [PROGRAM ...]    as tests/shell/shell_tests; all by default
set -euo pipefail
set -f  # a filter of tests is no name of a file
cd "$(dirname "$0")/.."

(($# > 0)) || set -- tests/shell/shell_tests tests/presets/preset_tests \
    tests/parameters/parameter_tests tests/resources/resources_tests tests/toolkit/toolkit_tests \
    tests/editor/editor_tests tests/vst/plugin_tests tests/vst/panel_tests tests/soak/soak_tests \
    tests/platform/platform_tests

scripts/dependencies.sh checks
cmake --preset release >/dev/null
cmake --build build -j "$(nproc)" >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# No place for settings unless a test makes one.
export XDG_CONFIG_HOME=/dev/null TESSEL8_STORM_SECONDS=${TESSEL8_STORM_SECONDS:-30}

# The tests of windows take the keyboard, hold buttons and end their server: a display each.
tests_of() {
    case $1 in
        */platform_tests | */panel_tests)
            "build/$1" --gtest_list_tests | awk '/^[^ ]/ { suite = $1 } /^  / { print suite $1 }' ;;
        *) echo '*' ;;
    esac
}

failed=0
for program; do
    verdict=clean
    for filter in $(tests_of "$program"); do
        scripts/with_display.sh valgrind --quiet --fair-sched=yes --error-exitcode=99 \
            --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
            "build/$program" --gtest_brief=1 --gtest_filter="$filter" >"$work/log" 2>&1 && continue
        verdict=FAILED
        failed=1
        cat "$work/log"
    done
    echo "$verdict  $program"
done
exit "$failed"
