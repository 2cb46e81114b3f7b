#!/usr/bin/env bash
# again.sh: builds the commit at hand once more, from a clone in a folder of another name, and compares
# the checksums with those that build.sh has left here. The toolkit is that of the cache.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/common.sh
sums=build/windows/dist/SHA256SUMS

git diff --quiet HEAD || { echo "What isn't committed isn't in a clone." >&2; exit 1; }
folder=$(mktemp -d --suffix=-otra-carpeta)
trap 'rm -rf "$folder"' EXIT
packaging/windows/build.sh
git clone --quiet . "$folder/mas/lejos/velmora"
(cd "$folder/mas/lejos/velmora" && packaging/windows/build.sh)
say "The same bytes in both folders?"
diff "$sums" "$folder/mas/lejos/velmora/$sums"
cat "$sums"
