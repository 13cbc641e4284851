#!/usr/bin/env bash
# Installs the effect for this user alone, without root: the plug-in, tessel8, and the manual,
# which the panel's manual button then opens.
#
#   ./install.sh [--uninstall]
set -euo pipefail
umask 022

if (($# > 1)) || [[ ${1:---uninstall} != --uninstall ]]; then
    echo "usage: ${0##*/} [--uninstall]" >&2
    exit 2
fi
cd "$(dirname "${BASH_SOURCE[0]}")"

data=$HOME/.local/share
manual=$data/doc/tessel8/manual.pdf
config=$HOME/.config
# The desktops' rule: a folder that is not told in full is to be ignored.
[[ ${XDG_CONFIG_HOME:-} == /* ]] && config=$XDG_CONFIG_HOME
settings="$config/Vantor-audio/Vantor Tessel Echo"

# Mode, file and destination of all that is installed.
files=(
    755 build/VantorTesselEcho.so              "$HOME/.vst/VantorTesselEcho.so"
    755 build/tessel8                          "$HOME/.local/bin/tessel8"
    644 build/docs/manual.pdf                  "$manual"
    644 build/docs/manual.html                 "$data/doc/tessel8/manual.html"
    644 README.md                              "$data/doc/tessel8/README.md"
    644 LICENSE                                "$data/doc/tessel8/LICENSE"
    644 docs/man/tessel8.1                     "$data/man/man1/tessel8.1"
    644 packaging/completions/tessel8.bash     "$data/bash-completion/completions/tessel8"
    644 packaging/completions/tessel8.fish     "$data/fish/vendor_completions.d/tessel8.fish"
)

# Removes a file, and those of its folders below the home or settings folder that it leaves empty.
remove() {
    rm -f -- "$1"
    local folder=${1%/*}
    while [[ $folder == "$HOME"/?* || $folder == "$config"/?* ]]; do
        rmdir -- "$folder" 2>/dev/null || return 0
        folder=${folder%/*}
    done
}

uninstall() {
    local i
    for ((i = 0; i < ${#files[@]}; i += 3)); do
        remove "${files[i + 2]}"
    done
    remove "$settings/ManualPath.str"
    echo "Removed. Your own settings stay in $settings, if there are any."
}

build() {
    scripts/dependencies.sh build
    echo "Building, which takes a minute the first time"
    # The first build leaves out what only tests need, and with it their libraries.
    local options=() targets=(tessel8 VantorTesselEcho) log
    [[ -f build/CMakeCache.txt ]] || options=(-DTESSEL8_TESTS=OFF -DTESSEL8_BENCH=OFF)
    if command -v pandoc >/dev/null && command -v weasyprint >/dev/null; then
        targets+=(manual)
    elif [[ ! -f build/docs/manual.pdf ]]; then
        echo "Without the manual: for that, run scripts/dependencies.sh docs and this again"
    fi
    log=$(mktemp)
    # What a step prints is of interest only where it fails.
    if ! cmake --preset release "${options[@]}" >"$log" 2>&1 ||
        ! cmake --build build --target "${targets[@]}" -- --quiet >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
}

# A file takes the place of its older one at once: a host may have that one open.
put() {
    mkdir -p -- "${3%/*}"
    install -m "$1" -- "$2" "$3.new"
    mv -f -- "$3.new" "$3"
}

tell_panel_of_manual() {
    (umask 077 && mkdir -p -- "$settings" && printf %s "$manual" >"$settings/ManualPath.str.new")
    mv -f -- "$settings/ManualPath.str.new" "$settings/ManualPath.str"
}

if (($# == 1)); then
    uninstall
    exit
fi
build
for ((i = 0; i < ${#files[@]}; i += 3)); do
    if [[ -f ${files[i + 1]} ]]; then
        put "${files[@]:i:3}"
        echo "${files[i + 2]}"
    fi
done
if [[ -f $manual ]]; then
    tell_panel_of_manual
fi
case :$PATH: in
    *:"$HOME/.local/bin":*) ;;
    *) echo "Put $HOME/.local/bin on your PATH to call tessel8 by its name." ;;
esac
