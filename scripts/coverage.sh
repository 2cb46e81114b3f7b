#!/usr/bin/env bash
# Line and branch coverage of the rooms without Qt, but for the report, by their own tests. Fails when less
# than 98 % of the lines or of the branches is reached; what is left is explained in docs/mutants.md.
#
#   scripts/coverage.sh             the table
#   scripts/coverage.sh --missing   and each line that is not fully reached
#
# Branches that only an exception takes don't count: the compiler makes one for every call.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages g++ cmake ninja-build libgtest-dev libgmock-dev python3 gcovr

rooms=(runtime core stats store capture sheet final)
folder=build/coverage
# Counts of an earlier build, and those of the programs that were only asked for their tests.
forget_counts() { find "$folder" -name '*.gcda' -delete; }

mkdir -p "$folder"
forget_counts
tests=ON
build coverage "${rooms[@]/#/test_}"
forget_counts
for room in "${rooms[@]}"; do
    say "Testing $room"
    "$folder/tests/test_$room" --gtest_brief=1
done

say "Coverage"
gcovr --root . --filter src/ --exclude-throw-branches --exclude-unreachable-branches \
    --json "$folder/coverage.json" "$folder"
python3 -B scripts/coverage_table.py "$folder/coverage.json" "$@"
