#!/usr/bin/env bash
# Runs a command on an X server of its own, without a screen anybody sees, and ends both.
# XVFB_OPTIONS may hold further options of the server. The command finds the server's process
# number in XVFB_PID.
#
#   scripts/with_display.sh COMMAND [ARGUMENT ...]
set -euo pipefail

(($# > 0)) || { echo "usage: ${0##*/} COMMAND [ARGUMENT ...]" >&2; exit 2; }

chosen=$(mktemp)
read -ra options <<<"${XVFB_OPTIONS:-}"
# The server takes the first free number and says which once it is ready.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset "${options[@]}" \
    3>"$chosen" >/dev/null 2>&1 &
export XVFB_PID=$!
trap 'kill "$XVFB_PID" 2>/dev/null || true; wait "$XVFB_PID" 2>/dev/null || true; rm -f "$chosen"' EXIT

for ((tries = 0; tries < 300; ++tries)); do
    [[ ! -s $chosen ]] || break
    kill -0 "$XVFB_PID" 2>/dev/null || { echo "${0##*/}: Xvfb did not start" >&2; exit 1; }
    sleep 0.05
done
[[ -s $chosen ]] || { echo "${0##*/}: Xvfb did not come up" >&2; exit 1; }

DISPLAY=:$(<"$chosen") "$@"
