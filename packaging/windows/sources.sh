#!/usr/bin/env bash
# sources.sh <package>: fetches a source package of Debian 12 into the cache and unpacks it with
# Debian's patches, once, and prints its folder. The package lists of the system stay as they are.
# Needs dpkg-dev.
set -euo pipefail

package=$1
cache=${XDG_CACHE_HOME:-$HOME/.cache}/velmora-windows
folder=$cache/sources/$package
if [ -f "$folder/complete" ]; then
    echo "$folder/tree"
    exit
fi

mkdir -p "$cache/apt/lists/partial" "$folder"
echo 'deb-src http://deb.debian.org/debian bookworm main' >"$cache/apt/sources.list"
apt=(apt-get -qq -o "Dir::Etc::sourcelist=$cache/apt/sources.list" -o Dir::Etc::sourceparts=-
    -o "Dir::State::lists=$cache/apt/lists" -o "Dir::Cache=$cache/apt" -o APT::Sandbox::User=root)
cd "$folder"
"${apt[@]}" update >&2
"${apt[@]}" --download-only --only-source source "$package" >&2
rm -rf tree
dpkg-source --no-check -x ./*.dsc tree >&2
touch complete
echo "$folder/tree"
