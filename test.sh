#!/usr/bin/env bash
# Sets up what is missing, builds everything and passes every test: the release build under a
# decimal point and under a decimal comma, the build with sanitizers, the rooms without Qt.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

# What tests take beyond that: the accessibility bus and a print server of their own, the package
# and its checkers.
test_packages=(
    binutils clang-14 clang-format clang-tidy cppcheck libclang-rt-14-dev
    dpkg-dev file git python3
    python3-gi gir1.2-atspi-2.0 at-spi2-core dbus-daemon xvfb openbox x11-utils
    cups-daemon cups-client poppler-utils
    lintian desktop-file-utils appstream man-db valgrind
)

install_packages "${build_packages[@]}" "${test_packages[@]}"

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
total=0

# run_tests <preset> <locale>: all tests of a build, and how many they were.
run_tests() {
    local preset=$1 locale=$2 log
    say "Testing (preset $preset, locale $locale)"
    log=build/$preset/ctest-$locale.log
    if ! LC_ALL=$locale ctest --preset "$preset" --parallel "$(nproc)" >"$log" 2>&1; then
        cat "$log"
        exit 1
    fi
    tail -n 4 "$log"
    total=$((total + $(sed -n 's/^100% tests passed, 0 tests failed out of \([0-9]*\)$/\1/p' "$log")))
}

say "Checking the format"
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror

build release
scripts/lint.sh
run_tests release C.UTF-8
run_tests release es_ES.UTF-8

say "Running the independent model beside the program"
python3 -B tests/lockstep/lockstep.py --program "$PWD/build/release/velmora" \
    --driver "$PWD/build/release" --sessions 6 --actions 300 --seed 1

say "Making, installing and removing the package"
status=0
tests/packaging/package_test.sh build/release || status=$?
[ "$status" -eq 0 ] || [ "$status" -eq 77 ] || exit "$status"

say "Fuzzing for a short while"
fuzz/fuzz.sh

build core
run_tests core C.UTF-8

# What the toolkit and the font library hold for the life of the process is no leak of ours.
build asan
ASAN_OPTIONS=detect_leaks=0 run_tests asan C.UTF-8

say "All tests passed: $total tests ran"
