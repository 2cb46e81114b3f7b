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

install_packages "${windows_packages[@]}" openbox xdotool imagemagick x11-utils xclip unzip locales poppler-utils \
    ghostscript cups-daemon cups-client python3-pefile
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
    ! strings -a "$build/stage/Velmora/programa/velmora.dll" | grep -F -e "$PWD" -e "${XDG_CACHE_HOME:-$HOME/.cache}" ||
        fail "paths of this machine are in the program"
}

# --- The real window's own tests.

# left_out <program>: the names of its tests that left_out.txt names, one a line.
left_out() { sed -n "s/^$1 \([^ ]*\) .*/\1/p" tests/windows/left_out.txt; }

# run_tests <program> <filter> <log> <display>: its tests on a display and a Windows of their own.
run_tests() {
    VELMORA_WINE=$work/wine-$3 xvfb-run -a -n "$4" -s '-screen 0 2560x2000x24' \
        sh -c 'openbox & exec "$@"' sh "$wine" "$build/tests/$1.exe" --gtest_filter="$2" \
        >"$work/$3.txt" 2>&1
}

# All tests of a program but those left out, half of them beside the other half. The window manager and
# Wine answer late at times: what failed has to pass when it is tried again, alone.
window_tests() {
    local name=${1##*/} half failed
    for half in 0 1; do
        GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$half \
            run_tests "$1" "-$(left_out "$name" | paste -sd:)" "$name-$half" 1${half}0 &
    done
    wait
    for half in 0 1; do
        grep '^\[  PASSED  \]' "$work/$name-$half.txt" || fail "$name ended before its last test"
    done
    failed=$(sed -n 's/^\[  FAILED  \] \([^ ,]*\).* ms)\r*$/\1/p' "$work/$name"-[01].txt)
    [ -n "$failed" ] || return 0
    printf 'tried again: %s\n' $failed
    run_tests "$1" "$(paste -sd: <<<"$failed")" "$name-again" 120 ||
        { grep -B 20 '^\[  FAILED' "$work/$name-again.txt"; fail "tests of $name"; }
}

# Says which tests that are left out pass meanwhile. Those that aren't there any more have to leave the
# list.
try_left_out() {
    local name=${1##*/} test
    run_tests "$1" "$(left_out "$name" | paste -sd:)" "$name-left-out" 120 || true
    while read -r test; do
        grep -qF "[ RUN      ] ${test%\*}" "$work/$name-left-out.txt" || fail "left out, and not there: $test"
    done < <(left_out "$name")
    sed -n 's/^\[       OK \] \([^ ]*\).*/left out, and passes now: \1/p' "$work/$name-left-out.txt"
}

export VELMORA_ZIP=$zip VELMORA_INSTALLER=$installer
say "What the programs are made of"
(cd "$build/dist" && sha256sum --quiet --check SHA256SUMS)
hardened
/usr/bin/python3 -B tests/windows/resources_test.py
say "The guided example"
xvfb-run -a -s '-screen 0 1400x1050x24' bash -c "set -euo pipefail
    $(declare -f guided_example fail); $(declare -p work wine build); guided_example"
say "The real window's tests"
cmake --build --preset windows --target test_qt test_report_dialog from_desktop names browser
for program in qt/test_qt report/test_report_dialog; do
    window_tests $program
    try_left_out $program
done
mkdir "$work/locales"
localedef -i es_ES -f UTF-8 "$work/locales/es_ES.UTF-8"
export LOCPATH=$work/locales LC_ALL=es_ES.UTF-8 VELMORA_PROGRAMS=$build/tests/windows VELMORA_WORK=$work
for tests in product at_home faults; do
    say "Under a Spanish region: $tests"
    xvfb-run -a -s '-screen 0 1400x1050x24' sh -c 'openbox & exec "$@"' \
        sh /usr/bin/python3 -B tests/windows/${tests}_test.py
done
say "Passed"
