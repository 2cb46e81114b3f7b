#!/usr/bin/env bash
# Sets up what is missing, builds the program and starts it. With no display it runs the guided
# example instead, which leaves pictures, a saved evaluation, its report and a printed page in build/recorrido.
#
#   ./run.sh               the program, or without a display the guided example
#   ./run.sh --recorrido   the guided example, at a pace that an audience can follow
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

tour=
pace=0
case ${1:-} in
    --recorrido) tour=yes pace=700 ;;
    '') ;;
    *)
        echo "Usage: ./run.sh [--recorrido]" >&2
        exit 2
        ;;
esac

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    tour=yes
    pace=0
    export QT_QPA_PLATFORM=offscreen
fi

install_packages "${build_packages[@]}"
build release velmora velmora_informe velmora_tour
use_decimal_point

if [ -n "$tour" ]; then
    say "Guided example"
    build/release/velmora_recorrido --ritmo "$pace" build/recorrido
    exec build/release/velmora-informe --reemplazar build/recorrido/evaluacion.doc
fi
say "Starting Velmora"
exec build/release/velmora
