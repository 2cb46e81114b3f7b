#!/usr/bin/env bash
# Takes the pictures that the guide and the README show from those of the guided example.
#
#   docs/take-pictures.sh [folder of the guided example]     build/recorrido unless told
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
from=${1:-$root/build/recorrido}

# take <name in the guided example> [<name here>]: there, a number stands ahead of the name.
take() {
    local found
    found=$(find "$from" -maxdepth 1 -name "[0-9]*-$1.png" | sort | sed -n 1p)
    if [ -z "$found" ]; then
        echo "take-pictures.sh: no picture $1 in $from; run ./run.sh without a display first" >&2
        exit 1
    fi
    cp "$found" "$root/docs/images/${2:-$1}.png"
}

# Those of the guide, as it names them.
while read -r name; do take "$name"; done < <(
    sed -n 's/.*(images\/\([a-z0-9-]*\)\.png).*/\1/p' "$root/docs/guia.md" | grep -v '^informe' | sort -u)
take hoja-conclusiones-dia-1 hoja

# Those of the report, in Chromium: its beginning, and its last picture.
shoot() {
    local page=$1 height=$2 name=$3
    chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --window-size=1000,"$height" \
        --screenshot="$root/docs/images/$name.png" "file://$page" 2>/dev/null
}
report=$root/examples/tres-dias-tres-tareas.html
shoot "$report" 1300 informe
ladder=$(mktemp --suffix=.html)
trap 'rm -f "$ladder"' EXIT
{
    sed -n '1,/<body>/p' "$report"
    echo '<figure><div class="lienzo">'
    sed -n '/<svg .*aria-labelledby="escalera-t/,/^<\/svg>/p' "$report"
    echo '</div></figure></body></html>'
} >"$ladder"
shoot "$ladder" 840 informe-escalera
