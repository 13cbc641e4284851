#!/usr/bin/env bash
# Every subcommand and option of --help stands in the man page and in the completions of each
# shell.
#
#   completions_test.sh TESSEL8 SOURCE_FOLDER
set -euo pipefail

tessel8=$1
cd "$2"
commands=$("$tessel8" --help | awk '/^Subcommands:/ { on = 1; next } on && NF { print $1 }')
options=$(for command in "" $commands; do
    "$tessel8" $command --help | grep -oE '^ +(-h,)?--[a-z]+' | grep -oE -e '--[a-z]+'
done | sort -u)
(($(wc -w <<<"$commands $options") >= 20)) || { echo "FAILED: cannot read --help" >&2; exit 1; }

missing=0
for file in packaging/completions/{tessel8.bash,_tessel8,tessel8.fish} docs/man/tessel8.1; do
    text=$(sed 's/\\-/-/g; s/-l \([a-z]\)/--\1/g' "$file")  # as troff and fish write options
    for word in $commands $options; do
        grep -qE -e "(^|[^-a-z])$word([^a-z]|\$)" <<<"$text" ||
            { echo "FAILED: $file does not know $word" >&2; missing=1; }
    done
done
exit $missing
