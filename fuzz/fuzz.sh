#!/bin/bash
# Builds and runs the five fuzzers, one after another.
#
#   fuzz/fuzz.sh                  a bounded run, the same each time
#   fuzz/fuzz.sh --runs N         N executions of each, with a corpus that is kept and grows
#   fuzz/fuzz.sh --seconds N      the same for N seconds of each; with --runs, what comes first
#
# Ends with status 1 at a finding and says where its input is kept. Needs cmake, ninja-build, clang-14
# and libclang-rt-14-dev.
set -euo pipefail
cd "$(dirname "$0")/.."

# The executions of the bounded run, and the largest input.
declare -A bounded=([fuzz_file]=1200 [fuzz_report]=300 [fuzz_numbers]=40000 [fuzz_statistics]=200000 [fuzz_use]=3000)
declare -A max_len=([fuzz_file]=8192 [fuzz_report]=16384 [fuzz_numbers]=400 [fuzz_statistics]=64 [fuzz_use]=241)
fuzzers=(fuzz_file fuzz_report fuzz_numbers fuzz_statistics fuzz_use)

usage() {
    echo "usage: fuzz/fuzz.sh [--runs N] [--seconds N]" >&2
    exit 2
}

runs=""
seconds=0
while [ $# -gt 0 ]; do
    [[ ${2:-} =~ ^[0-9]+$ ]] || usage
    case $1 in
        --runs) runs=$2 ;;
        --seconds) seconds=$2 ;;
        *) usage ;;
    esac
    shift 2
done

build=build/fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target "${fuzzers[@]}" make_seeds

if [ -z "$runs" ] && [ "$seconds" = 0 ]; then
    corpora=$build/bounded
    rm -rf "$corpora"
else
    corpora=$build/corpus
fi
findings=$build/findings
logs=$build/logs
mkdir -p "$findings" "$logs"

# Short stacks and a short memory of what was freed: faster, and still enough for short uses.
export ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=16

# Where watched uses keep their files: a use that ends in a finding leaves them behind.
export TMPDIR
TMPDIR=$(mktemp -d /dev/shm/velmora-fuzz.XXXXXX)
trap 'rm -rf "$TMPDIR"' EXIT

# Addresses find their way into what a fuzzer tries: the bounded run fixes them, where it may.
fixed=()
setarch -R true 2>/dev/null && fixed=(setarch -R)

for fuzzer in "${fuzzers[@]}"; do
    corpus=$corpora/$fuzzer
    log=$logs/$fuzzer.log
    mkdir -p "$corpus"
    options=(-seed=1 -entropic=0 -reload=0 -max_len="${max_len[$fuzzer]}" -timeout=20
        -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/$fuzzer-")
    if [ "$corpora" = $build/bounded ]; then
        options+=(-runs="${bounded[$fuzzer]}")
    else
        options+=(-runs="${runs:--1}" -max_total_time="$seconds")
    fi
    [ -f "fuzz/$fuzzer.dict" ] && options+=(-dict="fuzz/$fuzzer.dict")
    seeds=("fuzz/seeds/$fuzzer")
    [ $fuzzer = fuzz_file ] && seeds+=(examples)
    # What a report is made of is a whole evaluation, or a harmed one.
    [ $fuzzer = fuzz_report ] && seeds=(examples fuzz/seeds/fuzz_file)

    if ! "${fixed[@]}" "$build/fuzz/$fuzzer" "${options[@]}" "$corpus" "${seeds[@]}" >"$log" 2>&1; then
        echo "$fuzzer: a finding"
        grep -a -A 3 -e 'does not hold' -e 'ERROR: ' -e 'runtime error' "$log" | sed -n 1,20p || true
        input=$(grep -a -o 'Test unit written to .*' "$log" | sed 's/Test unit written to //' || true)
        echo "Its input is kept in ${input:-none: see $log}"
        echo "Once more: $build/fuzz/$fuzzer ${input:-...}"
        echo "Smaller:   $build/fuzz/$fuzzer -minimize_crash=1 -max_total_time=60 ${input:-...}"
        [ $fuzzer = fuzz_use ] && echo "With VELMORA_WATCH=1 ahead of it the use is told action by action."
        exit 1
    fi
    executed=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    echo "$fuzzer: $executed executions, $rate a second, no finding"
done
