#!/usr/bin/env bash
# Builds the program and the benchmark and prints the table of ratios, which also stays in
# build/release/bench/table.md. R and LibreOffice Calc are measured against where they are installed.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages "${build_packages[@]}"
build release velmora velmora_informe velmora_bench velmora_empty velmora_day velmora_watch

export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
say "Measuring"
build/release/bench/velmora_bench "$PWD/build/release" "$PWD" | tee build/release/bench/table.md
