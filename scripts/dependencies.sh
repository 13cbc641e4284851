#!/usr/bin/env bash
# Installs the Debian packages that a task needs, as far as they are missing.
#
#   scripts/dependencies.sh build|demo|test|docs|package|checks ...
set -euo pipefail

build=(g++ cmake ninja-build pkg-config libsndfile1-dev libcli11-dev libpng-dev
       libjack-jackd2-dev libxcb1-dev libxcb-shm0-dev libxkbcommon-dev libxkbcommon-x11-dev
       libcairo2-dev libpango1.0-dev fonts-liberation fonts-dejavu-core)
demo=("${build[@]}" alsa-utils)
test=("${build[@]}" libgtest-dev libgmock-dev libbenchmark-dev binutils
      xvfb libxcb-xtest0-dev jackd2)
docs=(pandoc weasyprint fonts-liberation)
package=("${build[@]}" "${docs[@]}" dpkg-dev file gzip)
checks=("${test[@]}" clang clang-tidy libclang-rt-dev valgrind)

usage() {
    echo "usage: ${0##*/} build|demo|test|docs|package|checks ..." >&2
    exit 2
}

# Prints those of the given packages that are not installed, one a line.
missing_packages() {
    local -A installed=()
    local package status
    while read -r package status; do
        [[ $status == installed ]] && installed[$package]=1
    done < <(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        [[ ${installed[$package]:-} ]] || echo "$package"
    done
}

as_root() {
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
}

(($# > 0)) || usage
wanted=()
for task in "$@"; do
    case $task in
        build) wanted+=("${build[@]}") ;;
        demo) wanted+=("${demo[@]}") ;;
        test) wanted+=("${test[@]}") ;;
        docs) wanted+=("${docs[@]}") ;;
        package) wanted+=("${package[@]}") ;;
        checks) wanted+=("${checks[@]}") ;;
        *) usage ;;
    esac
done

mapfile -t missing < <(missing_packages "${wanted[@]}" | sort -u)
((${#missing[@]} > 0)) || exit 0

if ! command -v apt-get >/dev/null; then
    echo "This system has no apt-get. Please install what Debian calls: ${wanted[*]}" >&2
    exit 1
fi
if ((EUID != 0)) && ! command -v sudo >/dev/null; then
    echo "Please install as root: apt-get install ${missing[*]}" >&2
    exit 1
fi

echo "Installing ${missing[*]}"
as_root apt-get update -qq
as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
