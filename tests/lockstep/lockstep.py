#!/usr/bin/env python3
"""Runs the real program and an independent model in lockstep over guided random sessions.

Exits 0 when they agree after every action of every session, 1 when they differ.
"""

import argparse
import json
import os
import random
import subprocess
import sys
import time
from collections import Counter

sys.dont_write_bytecode = True

from guia import Guia
from sesion import DE_UN_GOLPE, Sesion

AQUI = os.path.dirname(os.path.abspath(__file__))
RAIZ = os.path.dirname(os.path.dirname(AQUI))


def construir_driver(carpeta):
    """Builds the plug-in when it is missing or older than its sources."""
    fuente = os.path.join(AQUI, "driver")
    hecho = os.path.join(carpeta, "generic", "liblockstep_driver.so")
    reciente = max(os.path.getmtime(os.path.join(fuente, n)) for n in os.listdir(fuente))
    if not os.path.exists(hecho) or os.path.getmtime(hecho) < reciente:
        subprocess.run(
            ["cmake", "-S", fuente, "-B", carpeta, "-DCMAKE_BUILD_TYPE=Release"],
            check=True, stdout=subprocess.DEVNULL,
        )  # fmt: skip
        subprocess.run(
            ["cmake", "--build", carpeta, "-j2"], check=True, stdout=subprocess.DEVNULL
        )
    return carpeta


def repetir(opciones, locale, acciones):
    """Replays a list; (place of the first difference, its lines), place None when there is none."""
    sesion = Sesion(opciones.program, opciones.driver, locale)
    try:
        diferencias = sesion.abrir()
        if diferencias:
            return 0, diferencias, sesion.salida()
        for lugar, accion in enumerate(acciones, 1):
            if not sesion.aplicable(accion):
                continue
            diferencias = sesion.hacer(accion)
            if diferencias:
                return lugar, diferencias, sesion.salida()
        diferencias = sesion.cerrar()
        return (len(acciones) if diferencias else None), diferencias, sesion.salida()
    finally:
        sesion.proceso and sesion.proceso.matar()
        sesion.borrar()


def _clase(linea):
    """What a difference is about, without its values and indices."""
    return linea.split(": ", 1)[0].split("(", 1)[0]


def abreviar(opciones, locale, acciones, diferencias, plazo_s):
    """Drops actions as long as a difference of the same kind remains."""
    limite = time.monotonic() + plazo_s
    clase = _clase(diferencias[0])
    trozo = max(1, len(acciones) // 2)
    while trozo and time.monotonic() < limite:
        i = 0
        while i < len(acciones) and time.monotonic() < limite:
            prueba = acciones[:i] + acciones[i + trozo :]
            lugar, nuevas, _ = repetir(opciones, locale, prueba)
            if lugar is not None and any(_clase(linea) == clase for linea in nuevas):
                acciones, diferencias = prueba[:lugar], nuevas
            else:
                i += trozo
        trozo //= 2
    return acciones, diferencias


def una_sesion(opciones, locale, semilla):
    """(actions done, differences, kinds of actions) of a session of its own seed."""
    azar = random.Random(f"{semilla}/{locale}")
    sesion = Sesion(opciones.program, opciones.driver, locale)
    cuenta = Counter()
    try:
        diferencias = sesion.abrir()
        guia = Guia(azar, sesion.programa, azar.choice((0.02, 0.1, 0.3)))
        while not diferencias and len(sesion.hechas) < opciones.actions:
            accion = guia.siguiente()
            cuenta[type(sesion.programa.pantalla).__name__ + " " + accion[0]] += 1
            if accion[0] in DE_UN_GOLPE and azar.random() < 0.4:
                accion = ["&" + accion[0], *accion[1:]]
            diferencias = sesion.hacer(accion)
        diferencias = diferencias or sesion.cerrar()
        return sesion.hechas, diferencias, cuenta, sesion.salida()
    finally:
        sesion.proceso and sesion.proceso.matar()
        sesion.borrar()


def informar(opciones, locale, semilla, acciones, diferencias, salida):
    total = len(acciones)
    if opciones.shrink:
        acciones, diferencias = abreviar(opciones, locale, acciones, diferencias, opciones.shrink)
    print(f"DIFFERENCE seed {semilla} locale {locale}, after {total} actions")
    for linea in diferencias[:12]:
        print("   ", linea[:600])
    if len(diferencias) > 12:
        print(f"    ... {len(diferencias) - 12} more")
    if salida.strip():
        print("    the program wrote:", salida.strip()[-800:].replace("\n", "\n    "))
    nombre = os.path.join(opciones.reports, f"{locale}-{semilla}.json")
    os.makedirs(opciones.reports, exist_ok=True)
    with open(nombre, "w", encoding="utf-8") as abierto:
        json.dump({"locale": locale, "actions": acciones}, abierto, ensure_ascii=False, indent=0)
    for accion in acciones[-14:]:
        print("      ", json.dumps(accion, ensure_ascii=False)[:160])
    print(f"    {len(acciones)} actions, again with: lockstep.py --script {nombre}")
    sys.stdout.flush()


def pasar_guion(opciones):
    with open(opciones.script, encoding="utf-8") as abierto:
        guion = json.load(abierto)
    lugar, diferencias, salida = repetir(opciones, guion["locale"], guion["actions"])
    if lugar is None:
        print(f"{len(guion['actions'])} actions, no difference")
        return 0
    print(f"difference after action {lugar}: {json.dumps(guion['actions'][lugar - 1])[:200]}")
    for linea in diferencias:
        print("   ", linea)
    print(salida[-800:])
    return 1


def leer_opciones():
    partes = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    partes.add_argument("--sessions", type=int, default=50, help="sessions of each locale")
    partes.add_argument("--actions", type=int, default=400, help="actions of a session")
    partes.add_argument("--seed", type=int, default=1, help="seed of the first session")
    partes.add_argument("--locale", choices=("punto", "coma"), help="only this one")
    partes.add_argument("--stop-after", type=int, default=3, help="differing sessions to report")
    partes.add_argument("--shrink", type=float, default=60, help="seconds to shorten a report")
    partes.add_argument("--script", help="replay a reported action list")
    partes.add_argument("--program", default=os.path.join(RAIZ, "build/release/velmora"))
    partes.add_argument("--driver", help="build folder of the plug-in")
    partes.add_argument("--reports", default=os.path.join(RAIZ, "build/lockstep/reports"))
    partes.add_argument("--verbose", action="store_true", help="count the kinds of actions")
    opciones = partes.parse_args()
    if not opciones.driver:
        opciones.driver = construir_driver(os.path.join(RAIZ, "build/lockstep"))
    return opciones


def main():
    opciones = leer_opciones()
    if opciones.script:
        return pasar_guion(opciones)
    principio, total, malas, clases = time.monotonic(), 0, 0, Counter()
    sesiones = 0
    for semilla in range(opciones.seed, opciones.seed + opciones.sessions):
        for locale in (opciones.locale,) if opciones.locale else ("punto", "coma"):
            acciones, diferencias, cuenta, salida = una_sesion(opciones, locale, semilla)
            total, sesiones = total + len(acciones), sesiones + 1
            clases += cuenta
            if diferencias:
                malas += 1
                informar(opciones, locale, semilla, acciones, diferencias, salida)
        if malas >= opciones.stop_after:
            break
        if opciones.verbose and (semilla - opciones.seed) % 20 == 19:
            hasta = f"seed {semilla}: {sesiones} sessions, {total} actions, {malas} differ"
            print(hasta, file=sys.stderr, flush=True)
    segundos = time.monotonic() - principio
    print(f"{sesiones} sessions, {total} actions, {malas} with a difference, {segundos:.0f} s")
    if opciones.verbose:
        for clase, veces in sorted(clases.items()):
            print(f"  {veces:7d} {clase}")
    return 1 if malas else 0


if __name__ == "__main__":
    sys.exit(main())
