#!/usr/bin/env bash
# Plants the faults of tests/planted, one at a time, in a copy of the tree, and sees whether the
# tests that each of them names notice.
#
#   scripts/planted.sh                  all of them
#   scripts/planted.sh clock_of_utc     some, by name
#
# A fault is a patch; its first line says what a person would see, its second names what has to be
# built and, as ctest takes it, the tests that must fail. Those tests pass before the fault is
# planted. Ends with status 1 when one isn't noticed, 2 when one can't be planted any more.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

# A test that is skipped for want of something notices nothing.
install_packages "${build_packages[@]}" libgtest-dev libgmock-dev git patch python3 python3-gi gir1.2-atspi-2.0 \
    at-spi2-core dbus-daemon xvfb openbox x11-utils poppler-utils

export QT_QPA_PLATFORM=offscreen
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
faults=$PWD/tests/planted
work=$PWD/build/planted
names=("$@")
[ $# -gt 0 ] || mapfile -t names < <(cd "$faults" && printf '%s\n' *.patch | sed 's/\.patch$//')

mkdir -p "$work"
# Only what differs is copied, so that it is newer than what was built: an object that was built with
# a fault, of a run before this one, is built again.
git ls-files -z --cached --others --exclude-standard | while IFS= read -r -d '' file; do
    cmp -s "$file" "$work/$file" || cp --parents "$file" "$work"
done
cd "$work"

give_up() {
    printf '%s: %s\n' "$1" "$2" >&2
    exit 2
}

# With its context as it was: a fault that only adds lines would else be put anywhere.
plant() { patch -p1 --fuzz=0 --silent --no-backup-if-mismatch "$@"; }
header() { sed -n "$2p" "$faults/$1.patch"; }
targets() { header "$1" 2 | sed 's/^Build \(.*\); run .*/\1/'; }
tests() { header "$1" 2 | sed 's/^Build .*; run //'; }
# shellcheck disable=SC2046 # several targets are several words
built() { cmake --build --preset dev --target $(targets "$1") >"$1.log" 2>&1; }
pass() { ctest --preset dev --no-tests=error -R "$(tests "$1")" >"$1.log" 2>&1; }

for name in "${names[@]}"; do
    [ -f "$faults/$name.patch" ] || give_up "$name" "no such fault"
    plant --dry-run <"$faults/$name.patch" >"$name.log" 2>&1 ||
        give_up "$name" "it no longer applies: $(cat "$name.log")"
done

[ -f build/dev/build.ninja ] || cmake --preset dev >/dev/null
for name in "${names[@]}"; do
    built "$name" || give_up "$name" "the tree doesn't build: see $work/$name.log"
    pass "$name" || give_up "$name" "its tests fail without it: see $work/$name.log"
done
unnoticed=0
for name in "${names[@]}"; do
    plant <"$faults/$name.patch"
    verdict="noticed"
    if ! built "$name"; then
        verdict="doesn't build"
    elif pass "$name"; then
        verdict="NOT NOTICED"
        unnoticed=$((unnoticed + 1))
    fi
    plant --reverse <"$faults/$name.patch"
    printf '%-12s %-34s %s\n' "$verdict" "$name" "$(header "$name" 1)"
    [ "$verdict" != "doesn't build" ] || give_up "$name" "see $work/$name.log"
done
echo "${#names[@]} faults, $unnoticed not noticed"
[ "$unnoticed" -eq 0 ]
