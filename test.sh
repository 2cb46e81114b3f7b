#!/usr/bin/env bash
# Sets up what is missing, builds everything and passes every test. Says at the end how long each step
# took, which tests were the slowest, and what it leaves to commands of their own.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
tests=ON

# What tests take beyond that: the accessibility bus and a print server of their own, the package
# and its checkers.
test_packages=(
    libgtest-dev libgmock-dev
    binutils clang-14 clang-format clang-tidy cppcheck libclang-rt-14-dev
    dpkg-dev file git python3
    python3-gi gir1.2-atspi-2.0 at-spi2-core dbus-daemon xvfb openbox x11-utils
    cups-daemon cups-client poppler-utils
    lintian desktop-file-utils appstream man-db valgrind
)

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
total=0
times=()
logs=()

# step <name> <command>...: runs it, and remembers how long it took.
step() {
    local name=$1 from=$SECONDS
    shift
    say "$name"
    "$@"
    times+=("$(printf '%5d s  %s' $((SECONDS - from)) "$name")")
}

# run_tests <preset> <locale>: all tests of a build, and how many they were.
run_tests() {
    local preset=$1 locale=$2 log
    log=build/$preset/ctest-$locale.log
    logs+=("$log")
    if ! LC_ALL=$locale ctest --preset "$preset" --parallel "$(nproc)" >"$log" 2>&1; then
        cat "$log"
        exit 1
    fi
    tail -n 4 "$log"
    total=$((total + $(sed -n 's/^100% tests passed, 0 tests failed out of \([0-9]*\)$/\1/p' "$log")))
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

step "Packages" install_packages "${build_packages[@]}" "${windows_packages[@]}" \
    "${test_packages[@]}"
step "Format" check_format
step "Release build" build release
step "Lint" scripts/lint.sh
step "The guided example, which leaves a report" run_example
step "Tests of the release build under a decimal point" run_tests release C.UTF-8
step "The independent model beside the program" run_model
step "The package, made, installed and removed" try_package
step "The fuzzers for a short while" fuzz/fuzz.sh
step "The reports in a browser" tests/report/browser/browser_test.sh build/release
# The rooms without Qt are the same ones; their tests have run above.
step "The rooms on a machine without Qt" build core velmora_screens velmora_report
step "Musl, whose routines give Windows the same numbers" fetch_musl
step "The rooms without Qt, for Windows" build windows-core
step "Tests of the rooms for Windows, under Wine" run_tests windows-core C.UTF-8
step "Numbers on both systems, bit by bit" \
    tests/windows/compare_bits.sh build/release build/windows-core
step "Build with sanitizers" build asan
# What the toolkit and the font library hold for the life of the process is no leak of ours.
ASAN_OPTIONS=detect_leaks=0 step "Tests with sanitizers under a decimal comma" run_tests asan es_ES.UTF-8

say "The ten slowest tests"
sed -n 's/^ *[0-9]*\/[0-9]* Test *#[0-9]*: \([^ ]*\) .*Passed *\([0-9.]*\) sec$/\2 s  \1/p' "${logs[@]}" |
    sort -rn | sed -n 1,10p
say "Not run here, each a command of its own (CONTRIBUTING.md)"
sed -n 's/^| `\([^`]*\)` |.*/  \1/p' CONTRIBUTING.md
say "Seconds of each step"
printf '%s\n' "${times[@]}"
say "All tests passed: $total tests ran"
