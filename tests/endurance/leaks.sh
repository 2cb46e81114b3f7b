#!/bin/sh
# leaks.sh <velmora_endurance> [moves [evaluations [dialogs]]]: a short run under valgrind. Exit
# status 1 when memory is lost that a stack with code of ours has asked for; 77 without valgrind.
# What the libraries keep for the life of the process is passed over (valgrind.supp). Accesses are
# the sanitizers' affair: the toolkit's hashes and its regular expressions, compiled at run time,
# make valgrind speak up thousands of times.
set -u
here=$(cd "$(dirname "$0")" && pwd)
program=$1
moves=${2:-12}
evaluations=${3:-2}
dialogs=${4:-2}
command -v valgrind >/dev/null || exit 77

log=$(mktemp)
trap 'rm -f "$log"' EXIT
QT_QPA_PLATFORM=offscreen valgrind --undef-value-errors=no --leak-check=full \
    --show-leak-kinds=definite,indirect,possible --num-callers=50 \
    --suppressions="$here/valgrind.supp" --log-file="$log" \
    "$program" "$moves" "$evaluations" "$dialogs" 1 >/dev/null 2>&1
status=$?

# Status 1 says that memory isn't flat, which it never is in a run as short as this.
if [ "$status" -gt 1 ] || ! grep -q 'HEAP SUMMARY' "$log"; then
    echo "the run ended with status $status"
    tail -n 40 "$log"
    exit 1
fi
ours=$(sed 's/^==[0-9]*== *//' "$log" | awk -v RS= '/ lost in loss record/ && /velmora::/')
if [ -n "$ours" ]; then
    printf '%s\n' "$ours"
    exit 1
fi
echo "Nothing lost by code of ours in $moves moves, $evaluations evaluations and $dialogs dialogs:"
sed -n '/LEAK SUMMARY/,/suppressed/p' "$log" | sed 's/^==[0-9]*== //'
