#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs each for a while, side by side; ends with an error
# and keeps the input where one of them finds something.
#
#   scripts/fuzz.sh [SECONDS]    3600 by default
#
# What they learn stays in build-fuzz/corpus, so that the next run goes on from there.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/dependencies.sh checks
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$(nproc)"

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
run() {
    mkdir -p "build-fuzz/corpus/$2"
    TMPDIR=$home XDG_CONFIG_HOME=$home HOME=$home "build-fuzz/fuzz/$1" \
        -max_total_time="$seconds" -max_len=1000000 -timeout=60 -rss_limit_mb=4096 \
        -artifact_prefix="build-fuzz/$1-" -print_final_stats=1 \
        "build-fuzz/corpus/$2" "fuzz/corpus/$2" >"build-fuzz/$1.log" 2>&1
}
seconds=${1:-3600}
run image_fuzz images &
images=$!
run settings_fuzz settings &
settings=$!
failed=0
wait "$images" || failed=1
wait "$settings" || failed=1
grep -E '^(==|stat::number_of_executed_units)' build-fuzz/*_fuzz.log
exit "$failed"
