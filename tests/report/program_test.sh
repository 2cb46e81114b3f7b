#!/bin/sh
# The program itself, from outside, with no display.
#
#   program_test.sh <velmora-informe> <folder with the examples>
set -eu
informe=$1
examples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY

# expect <status> <argument>...: leaves what is said in out and err.
expect() {
    due=$1
    shift
    status=0
    "$informe" "$@" >"$work/out" 2>"$work/err" || status=$?
    [ "$status" -eq "$due" ] || { echo "status $status, not $due: $*"; cat "$work/err"; exit 1; }
}

expect 2
grep -q '^Uso: ' "$work/err" && [ ! -s "$work/out" ]
expect 2 --otra
grep -q 'velmora-informe: no hay ninguna opción «--otra»' "$work/err"
expect 0 --ayuda
grep -q '^Uso: ' "$work/out" && [ ! -s "$work/err" ]
expect 0 --version
grep -Eqx 'velmora-informe [0-9]+\.[0-9]+\.[0-9]+' "$work/out"

# Without a display, without a terminal, under a decimal comma: the same report.
cp "$examples/tres-dias-tres-tareas.doc" "$work/a.doc"
LC_ALL=es_ES.UTF-8 QT_QPA_PLATFORM=none "$informe" "$work/a.doc"
cmp "$work/a.html" "$examples/tres-dias-tres-tareas.html"

# A full disk: said, and nothing is left.
expect 1 --salida=/dev/full "$work/a.doc"
(ulimit -f 8 && "$informe" --salida="$work/b.html" "$work/a.doc" 2>"$work/err") && exit 1
grep -q 'b.html' "$work/err"
[ "$(ls "$work")" = "$(printf 'a.doc\na.html\nerr\nout')" ]

# A summary that nobody reads to its end, on a full disk.
if "$informe" --resumen "$work/a.doc" >/dev/full 2>"$work/err"; then exit 1; fi
grep -q 'salida estándar' "$work/err"

# Names with other letters and blanks, and without an ending.
for name in 'señal ñ' sin_fin; do
    cp "$work/a.doc" "$work/$name"
    "$informe" -- "$work/$name"
    cmp "$work/$name.html" "$work/a.html"
done

# Killed at any moment: the old report or the new one, whole.
for moment in 1 2 3 5 7 10 15 20 30 50; do
    echo viejo >"$work/b.html"
    timeout -s KILL "$(printf '0.%03d' "$moment")" \
        "$informe" --reemplazar --salida="$work/b.html" "$work/a.doc" || :
    echo viejo | cmp -s - "$work/b.html" || cmp "$work/b.html" "$work/a.html"
done

# A progress line on a terminal alone, and for more than twenty files alone.
for i in $(seq 21); do cp "$work/a.doc" "$work/n$i.doc"; done
"$informe" --resumen "$work"/n*.doc >/dev/null 2>"$work/err"
[ ! -s "$work/err" ]
# In C: the shell that script starts would warn of a locale that isn't installed.
on_terminal() { LC_ALL=C script -qec "'$informe' --resumen $1 >/dev/null" /dev/null </dev/null; }
on_terminal "'$work'/n*.doc" | grep '21 de 21' >/dev/null
[ -z "$(on_terminal "'$work'/n1?.doc")" ]
