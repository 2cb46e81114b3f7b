#!/usr/bin/env bash
# Renders the icon from its SVG source into assets/rendered, in the sizes that packages install. Run
# it after changing the source and commit both.
#
#   assets/render.sh [folder]     needs rsvg-convert (Debian: librsvg2-bin)
set -euo pipefail
sources=$(cd "$(dirname "$0")" && pwd)
target=${1:-$sources/rendered}
most_bytes=60000

if ! command -v rsvg-convert >/dev/null; then
    echo "render.sh: rsvg-convert is missing; install librsvg2-bin" >&2
    exit 1
fi
mkdir -p "$target"

for size in 16 24 32 48 64 128 256 512; do
    rsvg-convert --width "$size" --height "$size" "$sources/velmora.svg" \
        --output "$target/velmora-$size.png"
done

for file in "$target"/*.png; do
    bytes=$(stat --format %s "$file")
    if [ "$bytes" -ge "$most_bytes" ]; then
        echo "render.sh: $file has $bytes bytes; it should stay below $most_bytes" >&2
        exit 1
    fi
done
