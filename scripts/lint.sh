#!/usr/bin/env bash
# Bans and arrows of the sources, the scripts' pipes, README's map, the explained mutants, and cppcheck
# over the program, the guided example, the benchmark and what drives the window in the tests; any
# finding fails. With --tidy, clang-tidy over the same, with --tests over the tests.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages "${build_packages[@]}" libgtest-dev libgmock-dev cppcheck

# tidy <folder>...: over the sources as the daily build compiles them, one by one. It is built first:
# what it has read tells which sources have changed, and what the toolkit's own compiler makes of the
# headers has to be there.
tidy() {
    install_packages clang-tidy
    tests=ON build dev
    say "clang-tidy ($*)"
    python3 scripts/tidy.py build/dev "$@"
}

case ${1:-} in
    --tests)
        tidy tests
        exit
        ;;
    --tidy)
        tidy src tour bench tests/support
        exit
        ;;
esac

say "Bans and arrows"
python3 -B scripts/bans.py

# Whoever reads only the beginning ends the writer by a signal, and with pipefail the script with it.
say "Pipes that are read to their end"
if git grep -nE '(^|[^|])\|[^|]*\b([h]ead|grep -[a-zA-Z]*[q])\b' -- '*.sh' >&2; then exit 1; fi

say "README's map"
git ls-files | sed -n 's,^\(src/[^/]*\)/.*,\1,p;t; /^src/d; s,^\([^/]*/\).*,\1,p' | sort -u |
    while read -r folder; do
        grep -qE "(^|  )$folder( |$)" README.md ||
            { echo "README.md doesn't say what $folder holds" >&2; exit 1; }
    done

say "Explained mutants"
python3 -B scripts/mutants.py --check

# Not findings: members that only a structured binding reads, a loop that reads better than an
# algorithm, a variable that is written through its call operator.
say "cppcheck"
cppcheck --enable=warning,style,performance,portability --std=c++20 --quiet -j "$(nproc)" \
    --library=qt --library=googletest --inline-suppr --error-exitcode=1 -I src -I tests -I bench \
    --suppress=unusedStructMember --suppress=useStlAlgorithm --suppress=constVariable \
    --template='{file}:{line}: {severity} {id}: {message}' src tour bench tests/support
