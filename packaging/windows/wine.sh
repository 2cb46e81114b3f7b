#!/bin/sh
# wine.sh <program.exe> [argument...]: runs a program under Wine with a home and a Windows of its own,
# in VELMORA_WINE or else in a folder of the temporary ones. They are made on the first use.
set -eu
folder=${VELMORA_WINE:-${TMPDIR:-/tmp}/velmora-wine-$(id -u)}
export HOME="$folder/home" WINEPREFIX="$folder/prefix" WINEDEBUG="${WINEDEBUG:--all}"
# Neither the browser engine nor .NET, for which it would ask; no entries in this desktop's menus.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
mkdir -p "$HOME"
[ -f "$WINEPREFIX/system.reg" ] ||
    flock "$folder" sh -c '[ -f "$WINEPREFIX/system.reg" ] || { wineboot --init; wineserver --wait; }' \
        >/dev/null 2>&1
# A server that stays for some seconds: one that ends with its last program turns away the next one,
# which is knocking already. It says 2 where it runs.
flock --close "$folder" wineserver --persistent=10 2>/dev/null || [ $? -eq 2 ]
exec wine "$@"
