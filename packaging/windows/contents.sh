#!/usr/bin/env bash
# contents.sh <folder of the toolkit>: prints what is inside the programs for Windows, with versions
# and licences.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

source_version() { dpkg-parsechangelog -l "$("$here/sources.sh" "$1")/debian/changelog" -S Version; }
package_version() { dpkg-query -W -f='${Version}' "$1"; }
row() { printf '%-28s %-34s %-38s %s\n' "$@"; }

row PARTE VERSIÓN LICENCIA TEXTO
row velmora "$(sed -n 's/^project(velmora VERSION \([0-9.]*\).*/\1/p' "$here/../../CMakeLists.txt")" \
    MIT velmora.txt
row "Qt (qtbase)" "$(source_version qt6-base)" "LGPL-3" qt.txt
for part in "freetype:FTL" "harfbuzz:MIT" "libpng:libpng" "zlib:Zlib" "pcre2:BSD-3-Clause" \
    "double-conversion:BSD-3-Clause"; do
    row "  en Qt, ${part%%:*}" "la de Qt" "${part#*:}" qt.txt
done
row "Qt, textos en español" "$(package_version qt6-translations-l10n)" "GPL-3 con excepción de Qt" \
    qt-traducciones.txt
row "musl (exp, log, pow)" "$(source_version musl)" MIT musl.txt
row "Liberation (letras)" "$(package_version fonts-liberation)" "GPL-2 con excepciones" \
    liberation.txt
row "MinGW-w64, winpthreads" "$(package_version mingw-w64-x86-64-dev)" "ZPL-2.1, MIT, dominio público" \
    mingw-w64.txt
row "GCC, biblioteca de C++" "$(package_version g++-mingw-w64-x86-64-posix)" \
    "GPL-3 con excepción de GCC" gcc.txt
row "NSIS (sólo el instalador)" "$(package_version nsis)" Zlib nsis.txt
