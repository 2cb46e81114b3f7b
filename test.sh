#!/usr/bin/env bash
# Sets up what is missing, builds the program as it is used and passes every test. With --whole, so do
# the builds that look at the same sources in other ways: the fuzzers, the rooms for Windows and the
# sanitizers. Says at the end how long each step took, which tests were the slowest, and what it leaves
# to commands of their own.
#
# A step that has passed isn't run again while neither a file of the tree nor a package of the machine
# has changed; with --again every step is run.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
tests=ON

# What tests take beyond that: the accessibility bus and a print server of their own, the package
# and its checkers.
test_packages=(
    libgtest-dev libgmock-dev
    binutils clang-format cppcheck
    dpkg-dev file git python3
    python3-gi gir1.2-atspi-2.0 at-spi2-core dbus-daemon xvfb openbox x11-utils
    cups-daemon cups-client poppler-utils
    lintian desktop-file-utils appstream man-db valgrind
)
# What the other builds take beyond that.
other_packages=("${windows_packages[@]}" clang-14 libclang-rt-14-dev)

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
times=()
passed=build/passed
whole=
for option; do
    case $option in
        --again) rm -rf "$passed" ;;
        --whole) whole=1 ;;
        *)
            echo "usage: ./test.sh [--again] [--whole]" >&2
            exit 2
            ;;
    esac
done

# step <name> <command>...: runs it, and remembers how long it took.
step() {
    local name=$1 from=$SECONDS
    shift
    say "$name"
    "$@"
    times+=("$(printf '%5d s  %s' $((SECONDS - from)) "$name")")
}

# What a step's outcome hangs on: every file that git doesn't ignore, and the packages.
state() {
    {
        git ls-files --cached --others --exclude-standard -z | sort -z |
            xargs -0 sha256sum 2>/dev/null || true  # one that is deleted changes the list by itself
        dpkg-query -W
    } | sha256sum
}

# once <name> <command>...: a step that is left out where it has passed in the state of the start. What
# is edited while the steps run counts for the next time.
once() {
    local name=$1
    if [ "$(cat "$passed/$name" 2>/dev/null)" = "$at_start" ]; then
        say "$name: passed before, and nothing has changed"
        times+=("    -    $name (passed before)")
        return
    fi
    step "$@"
    mkdir -p "$passed"
    printf '%s\n' "$at_start" >"$passed/$name"
}

# run_tests <preset> <locale>: all tests of a build.
run_tests() {
    local preset=$1 log=build/$1/ctest.log
    if ! LC_ALL=$2 ctest --preset "$preset" --parallel "$(nproc)" >"$log" 2>&1; then
        cat "$log"
        exit 1
    fi
    tail -n 4 "$log"
}

check_format() { git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror; }

run_example() {
    rm -f build/recorrido/evaluacion.html
    env -u DISPLAY -u WAYLAND_DISPLAY ./run.sh
    grep -q '<!DOCTYPE html>' build/recorrido/evaluacion.html
}

run_model() {
    python3 -B tests/lockstep/lockstep.py --program "$PWD/build/release/velmora" \
        --driver "$PWD/build/release" --sessions 6 --actions 300 --seed 1
}

fetch_musl() { VELMORA_MUSL=$(packaging/windows/sources.sh musl) && export VELMORA_MUSL; }

# A machine without root can't install: the package is made and checked all the same.
try_package() {
    local status=0
    tests/packaging/package_test.sh build/release || status=$?
    [ "$status" -eq 0 ] || [ "$status" -eq 77 ]
}

other_builds() {
    once "The fuzzers for a short while" fuzz/fuzz.sh
    step "Musl, whose routines give Windows the same numbers" fetch_musl
    # It is the build without Qt, too: this toolkit isn't there for that compiler.
    step "The rooms without Qt, for Windows" build windows-core
    once "Tests of the rooms for Windows, under Wine" run_tests windows-core C.UTF-8
    once "Numbers on both systems, bit by bit" \
        tests/windows/compare_bits.sh build/release build/windows-core
    step "Build with sanitizers" build asan
    # What the toolkit and the font library hold for the life of the process is no leak of ours.
    ASAN_OPTIONS=detect_leaks=0 once "Tests with sanitizers under a decimal comma" \
        run_tests asan es_ES.UTF-8
}

step "Packages" install_packages "${build_packages[@]}" "${test_packages[@]}" \
    ${whole:+"${other_packages[@]}"}
step "Packages of the browser" tests/report/browser/browser_test.sh --packages
at_start=$(state)
once "Format" check_format
step "Release build" build release
once "Lint" scripts/lint.sh
once "The guided example, which leaves a report" run_example
once "Tests of the release build under a decimal point" run_tests release C.UTF-8
once "The independent model beside the program" run_model
once "The package, made, installed and removed" try_package
once "The reports in a browser" tests/report/browser/browser_test.sh build/release
logs=(build/release/ctest.log)
if [ -n "$whole" ]; then
    other_builds
    logs+=(build/windows-core/ctest.log build/asan/ctest.log)
fi

say "The ten slowest tests"
sed -n 's/^ *[0-9]*\/[0-9]* Test *#[0-9]*: \([^ ]*\) .*Passed *\([0-9.]*\) sec$/\2 s  \1/p' "${logs[@]}" |
    sort -rn | sed -n 1,10p
say "Not run here, each a command of its own (CONTRIBUTING.md)"
[ -n "$whole" ] || echo "  ./test.sh --whole: the fuzzers, the rooms for Windows, the sanitizers"
sed -n 's/^| \(`[^|]*`\) |.*/  \1/p' CONTRIBUTING.md | tr -d '`'
say "Seconds of each step"
printf '%s\n' "${times[@]}"
say "All tests passed: $(sed -n 's/^100% tests passed, .* out of //p' "${logs[@]}" |
    awk '{ sum += $1 } END { print sum }') programs and scripts of ctest"
