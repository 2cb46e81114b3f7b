#!/usr/bin/env bash
# Raw events in bursts, to every screen, box and dialog, under the address and undefined behaviour
# sanitizers.
#
#   scripts/bursts.sh                          25000 events of each of the seeds 1 to 4
#   scripts/bursts.sh --events N --seeds M --from S
#
# Prints how many events came by screen and kind. Ends with status 1 at the first report or failure.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

events=25000
seeds=4
first=1
usage() {
    echo "usage: scripts/bursts.sh [--events N] [--seeds M] [--from S]" >&2
    exit 2
}
while [ $# -gt 0 ]; do
    [[ ${2:-} =~ ^[0-9]+$ ]] || usage
    case $1 in
        --events) events=$2 ;;
        --seeds) seeds=$2 ;;
        --from) first=$2 ;;
        *) usage ;;
    esac
    shift 2
done

install_packages "${build_packages[@]}"
build asan test_qt >&2

export QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1
log=$(mktemp)
trap 'rm -f "$log"' EXIT
for ((seed = first; seed < first + seeds; seed++)); do
    VELMORA_BURSTS=$events VELMORA_SEED=$seed build/asan/tests/qt/test_qt \
        --gtest_filter='Seeds/BurstsOfSeed.*/0' >"$log" 2>&1 || {
        grep -v '^Form' "$log"
        echo "seed $seed: a finding"
        exit 1
    }
    echo "seed $seed: $events events"
    grep '^Form' "$log" | awk -F'\t' '{ n[$1 "\t" $3] += $4 } END { for (k in n) print k "\t" n[k] }' | sort
done
