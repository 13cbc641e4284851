#!/usr/bin/env bash
# Lets the effect be heard: renders three settings over short recordings of speech, or over the
# audio file that is given.
#
#   ./demo.sh [IN.wav]
set -euo pipefail

if (($# > 1)); then
    echo "usage: ${0##*/} [IN.wav]" >&2
    exit 2
fi
if (($# == 1)) && [[ ! -r $1 ]]; then
    echo "${0##*/}: cannot read $1" >&2
    exit 2
fi
own_recording=${1:+$(realpath -- "$1")}
cd "$(dirname "${BASH_SOURCE[0]}")"

speech=/usr/share/sounds/alsa
output=build/demo

prepare() {
    scripts/dependencies.sh demo
    [[ -x build/tessel8 && -f build/VantorTesselEcho.so ]] || echo "Building, which takes a minute"
    # The first build leaves out what only tests need, and with it their libraries.
    local options=() log
    [[ -f build/CMakeCache.txt ]] || options=(-DTESSEL8_TESTS=OFF -DTESSEL8_BENCH=OFF)
    # What a step prints is of interest only where it fails; the builder is quiet by itself.
    log=$(mktemp)
    if ! cmake --preset release "${options[@]}" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
    cmake --build build --target tessel8 VantorTesselEcho -- --quiet |
        { grep -vxF "ninja: no work to do." || true; }
    mkdir -p "$output"
}

# render NAME RECORDING DESCRIPTION Name=value ...
render() {
    local name=$1 recording=${own_recording:-$speech/$2} description=$3
    shift 3
    local options=() setting
    for setting in "$@"; do
        options+=(--set "$setting")
    done
    echo
    echo "$description"
    echo "  from $recording"
    echo "  with $*" | fold -s -w 90 | sed "s/ \$//; 2,\$s/^/       /"
    local result
    result=$(build/tessel8 render "$recording" "$output/$name.wav" "${options[@]}")
    echo "  to   $result"
}

# An echo on each beat at 120 BPM. The tap feeds itself, so each repeat has half the level of the
# one before. A quarter is 500 ms, and DelayT counts in parts of the memory of 8 s.
quarter_note_echo() {
    render quarter-note-echo Front_Center.wav \
        "Quarter-note echo: one tap that repeats at half the level, 120 BPM" \
        TimeMode=0.5 Tempo=0.28125 Note=0.3125 \
        ModeFB=0 DelayT1=0.0625 TAPtoFB1=1 AmtFBT1=0.5
}

# A tap on each eighth note, every other one on the other side and each a little softer. The last
# one goes back to the start with its channels swapped.
ping_pong() {
    local settings=(TimeMode=0.5 Tempo=0.28125 Note=0.4375 ModeFB=1)
    local delays=(0.03125 0.0625 0.09375 0.125 0.15625 0.1875 0.21875 0.25)
    local gains=(0.50 0.47 0.44 0.41 0.38 0.35 0.32 0.29)
    local tap
    for tap in {1..8}; do
        settings+=("ActTap$tap=1" "DelayT$tap=${delays[tap - 1]}" "PanTap$tap=$(((tap + 1) % 2))"
                   "GainT$tap=${gains[tap - 1]}")
    done
    settings+=(TAPtoFB8=1 AmtFBT8=1 ActiveFB=1 GainFB=0.4 PanFB_R=0 PanFB_L=1)
    render ping-pong Side_Left.wav \
        "Ping-pong: eight taps from side to side, one an eighth note, the last fed back" \
        "${settings[@]}"
}

# Eight loops whose lengths have no common measure, so that their repeats never fall together and
# melt into a swell; 113 ms is 0.014125 of the memory, 887 ms 0.110875.
swell() {
    local settings=(TimeMode=0 ModeFB=2)
    local delays=(0.014125 0.026375 0.038375 0.052375 0.067625 0.082375 0.096625 0.110875)
    local amounts=(0.80 0.77 0.74 0.72 0.69 0.66 0.63 0.60)
    local tap
    for tap in {1..8}; do
        settings+=("ActTap$tap=1" "DelayT$tap=${delays[tap - 1]}" "GainT$tap=0.3"
                   "FBPostT$tap=0" "TAPtoFB$tap=1" "AmtFBT$tap=${amounts[tap - 1]}")
    done
    render swell Rear_Center.wav \
        "Swell: eight echo loops of 113 to 887 ms, each feeding itself" \
        "${settings[@]}"
}

prepare
quarter_note_echo
ping_pong
swell
