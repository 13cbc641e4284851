#!/usr/bin/env bash
# Runs a command with a JACK server of its own, without hardware, and ends both. The command finds
# the server's process number in JACKD_PID; that is not set where the server could not be started.
#
#   scripts/with_jack.sh COMMAND [ARGUMENT ...]
set -euo pipefail

(($# > 0)) || { echo "usage: ${0##*/} COMMAND [ARGUMENT ...]" >&2; exit 2; }

unset JACKD_PID
export JACK_DEFAULT_SERVER=tessel8-$$ JACK_NO_AUDIO_RESERVATION=1
if command -v jackd >/dev/null; then
    jackd --no-realtime -d dummy -r 48000 -p 256 >/dev/null 2>&1 &
    server=$!
    trap 'kill "$server" 2>/dev/null || true; wait "$server" 2>/dev/null || true' EXIT
    ! jack_wait -w -t 20 >/dev/null 2>&1 || export JACKD_PID=$server
fi

"$@"
