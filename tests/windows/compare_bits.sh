#!/usr/bin/env bash
# compare_bits.sh <build folder> <build folder for Windows>: whether the arithmetic of the two gives
# the same bits, with fused operations where this processor has them and without. Status 0: it does.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
native=$1/tests/windows/velmora_bits
windows=$2/tests/windows/velmora_bits.exe
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# compare <name>: the two printouts of that name; says which lines differ, and how many.
compare() {
    tr -d '\r' <"$work/$1.exe.txt" | diff "$work/$1.txt" - >"$work/differences" && {
        echo "$1: $(wc -l <"$work/$1.txt") lines are the same"
        return
    }
    echo "$1: $(grep -c '^<' "$work/differences") lines differ, these first:"
    head -n 20 "$work/differences"
    exit 1
}
under_wine() { "$here/../../packaging/windows/wine.sh" "$windows" "$@"; }

"$native" >"$work/own.txt"
under_wine >"$work/own.exe.txt"
compare own

# The C library takes the way without fused operations where it is told that the processor has none.
GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2_Usable,-FMA_Usable,-AVX2,-FMA "$native" >"$work/plain.txt"
under_wine plain >"$work/plain.exe.txt"
compare plain

if cmp -s "$work/own.txt" "$work/plain.txt"; then
    echo "This processor has no fused operations: their way isn't compared."
    exit
fi
under_wine fused >"$work/fused.exe.txt"
cp "$work/own.txt" "$work/fused.txt"
compare fused
