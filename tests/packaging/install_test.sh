#!/usr/bin/env bash
# Installs into a prefix of its own: files lie where hosts and shells look, and the installed
# tessel8 finds the installed plug-in, one in ~/.vst, and says where it looked without any.
#
#   install_test.sh CMAKE BUILD_FOLDER VST_FOLDER
set -euo pipefail

cmake=$1 build=$2 vst=$3
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
export HOME=$prefix/home XDG_CONFIG_HOME=

fail() { echo "FAILED: $*" >&2; exit 1; }

"$cmake" --install "$build" --prefix "$prefix/usr" >/dev/null
cd "$prefix/usr"
plugin=$vst/VantorTesselEcho.so
for file in "$plugin" bin/tessel8 share/man/man1/tessel8.1 share/doc/tessel8/{README.md,LICENSE} \
    share/bash-completion/completions/tessel8 share/zsh/site-functions/_tessel8 \
    share/fish/vendor_completions.d/tessel8.fish; do
    [[ -s $file ]] || fail "$file is missing"
done
[[ ! -e /etc/debian_version || $vst == lib/vst ]] || fail "hosts on Debian do not look in $vst"

# The folder may be moved: the two find each other from where they are.
mv "$prefix/usr" "$prefix/moved"
cd "$prefix/moved"
(($(bin/tessel8 list --params | wc -l) == 216)) || fail "the installed plug-in does not answer"

# The user's .vst is used where there is no other, and only then.
mkdir -p "$HOME/.vst"
echo "not a plug-in" >"$HOME/.vst/VantorTesselEcho.so"
bin/tessel8 list --params >/dev/null || fail "the user's .vst was preferred"
mv "$plugin" "$HOME/.vst/"
(($(bin/tessel8 list --params | wc -l) == 216)) || fail "the user's .vst was not searched"
rm -r "$HOME/.vst"
said=$(bin/tessel8 list --params 2>&1) && fail "worked without a plug-in"
for place in "$PWD/bin/VantorTesselEcho.so" "$PWD/$plugin" "$HOME/.vst/VantorTesselEcho.so"; do
    [[ $said == *"$place"* ]] || fail "does not say that it looked for $place: $said"
done
