#!/usr/bin/env bash
# Tests what packaging/windows/build.sh has left in build/windows, under Wine on a display of its own.
#
# It comes after build.sh and a release build (cmake --preset release). The rooms without Qt and the
# numbers' bits are ./test.sh's. Leaves the pictures of the guided example and of the product's tests
# in build/windows-test.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/common.sh
here=packaging/windows
build=$PWD/build/windows
work=$PWD/build/windows-test
version=$(sed -n 's/^project(velmora VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
zip=$build/dist/velmora-$version-windows.zip
installer=$build/dist/velmora-$version-windows-instalador.exe

install_packages "${windows_packages[@]}" openbox xdotool imagemagick unzip locales poppler-utils
fail() { printf 'FAILED: %s\n' "$*" >&2; exit 1; }
[ -f "$zip" ] || fail "$zip is missing: packaging/windows/build.sh makes it"
rm -rf "$work"
mkdir -p "$work"
export VELMORA_WINE=$work/wine
unset QT_QPA_PLATFORM
wine=$PWD/$here/wine.sh

# --- The guided example: every comparison, and the bytes of all that it saves.

guided_example() {
    local native=$work/recorrido-debian windows=$work/recorrido-windows file
    LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen build/release/velmora_recorrido "$native" \
        --ejemplos "$native/ejemplos" >"$work/recorrido-debian.txt"
    LC_NUMERIC=C "$wine" "$build/velmora_recorrido.exe" "$windows" \
        --ejemplos "$windows/ejemplos" >"$work/recorrido-windows.txt" ||
        { tail "$work/recorrido-windows.txt"; fail "the guided example"; }
    tail -n 3 "$work/recorrido-windows.txt"
    for file in evaluacion.doc evaluacion-otra-vez.doc ejemplos/plan-dia-trabajado.doc \
        ejemplos/tres-dias-tres-tareas.doc; do
        cmp "$native/$file" "$windows/$file" || fail "$file differs"
    done
    cmp examples/tres-dias-tres-tareas.doc "$windows/evaluacion.doc"
    pdffonts "$windows/resultados.pdf" | grep Bold >/dev/null || fail "no bold letters on the printed page"
}

# --- What is hardened, and what the programs lean on.

hardened() {
    local program
    for program in velmora.exe velmora-informe.exe programa/velmora.exe programa/velmora.dll; do
        x86_64-w64-mingw32-objdump -p "$build/stage/Velmora/$program" >"$work/head.txt"
        for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
            grep -q $flag "$work/head.txt" || fail "$program has no $flag"
        done
        ! grep 'DLL Name' "$work/head.txt" | grep -iE 'libgcc|libstdc|winpthread|Qt6|libssp' ||
            fail "$program leans on a library that isn't there"
    done
    ! strings -a "$build/stage/Velmora/programa/velmora.dll" | grep -F -e "$PWD" -e "$HOME/.cache" ||
        fail "paths of this machine are in the program"
}

say "What the programs are made of"
hardened
say "The guided example"
xvfb-run -a -s '-screen 0 1400x1050x24' bash -c "set -euo pipefail
    $(declare -f guided_example fail); $(declare -p work wine build); guided_example"
say "The zip and the installer under a Spanish region"
cmake --build --preset windows --target from_desktop
mkdir "$work/locales"
localedef -i es_ES -f UTF-8 "$work/locales/es_ES.UTF-8"
LOCPATH=$work/locales LC_ALL=es_ES.UTF-8 xvfb-run -a -s '-screen 0 1400x1050x24' \
    sh -c 'openbox & exec /usr/bin/python3 -B "$@"' sh tests/windows/product_test.py \
    "$zip" "$installer" "$build/tests/windows/from_desktop.exe" "$work"
say "Passed"
