#!/usr/bin/env python3
"""Las cifras que debe dar el recorrido, calculadas por otro camino.

    python3 tour/esperado.py evaluacion.doc

Del fichero sólo toma lo que se tecleó: el plan, los contaminantes y las concentraciones. Calcula con
ello las tres jornadas y la tabla final, compara cada celda con la que guarda el fichero y escribe
las filas de tour/expected.cpp. Termina con 1 si alguna celda difiere.
"""

import math
import sys
from decimal import ROUND_HALF_UP, Decimal

FACTORES = {3: (0.7969, 0.1964), 4: (0.763, 0.228), 5: (0.7593, 0.2393), 6: (0.7477, 0.251)}
CURVAS = [
    (1.0026, 0.2357, 0.001), (0.994, 0.2722, 0.01), (0.9991, 0.3272, 0.1),
    (0.9986, 0.4342, 1), (1.002, 0.6049, 5)]
POR_TAREA = {1: (0, 0.222), 2: (24, 0.222), 3: (48, 0.2222)}  # primera celda de EC+ y factor
VERDICTOS = {
    1: ("EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
        "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS"),
    2: ("EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
        "SE CONTINUA  CON EL PLAN DE MEDICIONES"),
    3: ("EXPOSICIÓN INFERIOR AL VALOR LÍMITE: SITUACIÓN SEGURA", "PLAN DE MEDICIONES FINALIZADO")}
INACEPTABLE = "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"
PROBABILIDADES = (
    " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
    " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS",
    "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS")


def texto(x):
    """Hasta quince cifras significativas; basta con la forma sin exponente."""
    t = f"{x:.15g}"
    assert "e" not in t, t
    return t


def dos_decimales(x):
    t = str(Decimal(f"{x:.15g}").quantize(Decimal("0.01"), ROUND_HALF_UP))
    entero, decimales = t.split(".")
    return entero.lstrip("0") + "." + decimales.rstrip("0")


def numero(t):
    return float(t) if t not in ("", ".") else 0.0


def media_estimada(muestras):
    logs = [math.log(m) for m in muestras]
    n = len(logs)
    media = sum(logs) / n
    desviacion = (sum(math.pow(abs(media - g), 2.0) for g in logs) / (n - 1)) ** 0.5
    mg, gsd = math.exp(media), math.exp(desviacion)
    a, b = FACTORES.get(n, (1.0, 0.0))
    return mg, gsd, mg * max(1.0, a * math.exp(b * gsd))


def probabilidad(razon, dispersion):
    if razon <= 0:
        return 0
    return next((p for a, b, p in CURVAS if a * math.pow(razon, b) > dispersion), 50)


class Evaluacion:
    """Lo que guarda un fichero de evaluación."""

    def __init__(self, fichero):
        with open(fichero, encoding="cp1252", newline="") as f:
            lineas = f.read().split("\r\n")
        assert len(lineas) == 1525 and lineas[-1] == "", "no son 1524 líneas"
        valores = iter(v[1:-1] if v.startswith('"') else v for v in lineas)
        toma = lambda: next(valores)
        self.empresa = [toma() for _ in range(19)]
        self.jornadas, self.tareas = int(toma()), int(toma())
        self.horas, self.filas = {}, {}
        for d in (1, 2, 3):
            for t in (1, 2, 3):
                self.horas[d, t] = float(toma())
                self.filas[d, t] = int(toma()) + int(toma())
        self.contaminantes = {t: int(toma()) for t in (1, 2, 3)}
        self.agente = {
            (t, r): (toma(), float(toma()), float(toma()), int(toma()), int(toma()), toma())
            for t in (1, 2, 3) for r in range(1, 7)}
        self.hoja = {1: [], 2: [], 3: []}
        for _ in range(401):
            for d in (1, 2, 3):
                self.hoja[d].append(toma())
        self.final = [[toma() for _ in range(9)] for _ in range(18)]


class Jornada:
    """La hoja de un día: las 18 filas de 18 y 4 celdas, y las cinco celdas de las conclusiones."""

    def __init__(self, e, dia):
        self.e, self.dia = e, dia
        self.celda = [[""] * 18 for _ in range(18)]
        self.corta = [""] * 72
        self.mg_gsd = {}
        for t in range(1, e.tareas + 1):
            for r in range(1, e.filas[dia, t] + 1):
                self.validar_fila(t, r)
        self.indice_diario()
        for t in range(1, e.tareas + 1):
            self.corta_exposicion(t)
        self.conclusiones()

    def fila(self, t, r):
        return self.celda[6 * (t - 1) + r - 1]

    def validar_fila(self, t, r):
        nombre, ed, ec, tm, grupo, unidad = self.e.agente[t, r]
        fila = self.fila(t, r)
        i = (6 * (t - 1) + r - 1) * 18
        fila[:13] = [str(r), nombre, texto(ed), texto(ec), unidad, str(tm), str(grupo)] + \
            self.e.hoja[self.dia][i + 7:i + 13]
        muestras = [float(c) for c in fila[7:13] if c]
        mg, gsd, mmp = media_estimada(muestras)
        # Fila 6 de la tarea 2: cuenta el tiempo del primer día, sea cual sea el de la hoja.
        dia = 1 if (t, r) == (2, 6) else self.dia
        fila[13] = dos_decimales(mmp)
        fila[14] = dos_decimales(self.e.horas[dia, t] * mmp / (ed * 8) if ed else 0)
        self.mg_gsd[6 * (t - 1) + r] = mg, gsd

    def indice_diario(self):
        grupo = lambda f: numero(f[6])
        for k in range(1, 21):
            miembros = [f for f in self.celda if grupo(f) == k]
            if not miembros:
                assert numero(self.celda[0][8]) != numero(self.celda[0][9]), "C2 = C3 en la fila 1"
                continue
            suma = 0.0
            for f in miembros:
                suma = numero(texto(numero(f[14]) + suma))
            if suma != numero(miembros[0][14]):
                miembros[0][15] = texto(suma)
        for R, f in enumerate(self.celda, 1):
            f[16], f[17] = map(dos_decimales, self.mg_gsd.get(R, (0, 0)))
            if grupo(f) == 0:
                f[15] = f[14]
        for R, f in enumerate(self.celda, 1):
            if grupo(f) == R:
                for otra in self.celda[R:]:
                    if grupo(otra) == R:
                        otra[15] = texto(numero(f[15]))

    def corta_exposicion(self, t):
        base, factor = POR_TAREA[t]
        filas = [self.fila(t, r) for r in range(1, self.e.contaminantes[t] + 1)]
        limite = lambda f: numero(f[3]) or 3 * numero(f[2])
        grupos = {k: [i for i, f in enumerate(filas) if numero(f[6]) == k] for k in range(7)}
        for i in grupos[0] + [m[0] for k, m in grupos.items() if k and len(m) == 1]:
            d = base + 4 * i
            self.corta[d] = texto(limite(filas[i]))
            self.corta[d + 1:d + 3] = texto(numero(filas[i][16])), texto(numero(filas[i][17]))
        for k, miembros in grupos.items():
            if k == 0 or len(miembros) < 2:
                continue
            primera = miembros[0]
            mmp = [numero(filas[i][13]) for i in miembros]
            w = 0.0
            for i, v in zip(miembros, mmp):
                w += v / limite(filas[i])
            lugar = 108 * (t - 1) + 18 * primera + 6
            self.corta[math.floor(lugar * factor - 1.3)] = texto(sum(mmp) / w)
            logs = []
            for m in range(7, 13):
                muestras = [numero(filas[i][m]) for i in miembros]
                if 0 in muestras:
                    break
                logs.append(math.log(sum(muestras)))
            g = sum(logs) / len(logs)
            s = (sum(math.pow(abs(g - x), 2.0) for x in logs) / (len(logs) - 1)) ** 0.5
            self.corta[base + 4 * primera + 1] = texto(math.exp(g))
            self.corta[base + 4 * primera + 2] = texto(math.exp(s))
        for d in range(base, base + 4 * len(filas), 4):
            if self.corta[d]:
                razon = numero(self.corta[d]) / numero(self.corta[d + 1])
                self.corta[d + 3] = texto(probabilidad(razon, numero(self.corta[d + 2])))

    def conclusiones(self):
        y = max(numero(f[c]) for f in self.celda for c in (14, 15))
        p = max(numero(self.corta[d]) for d in range(3, 72, 4))
        superado = any(
            numero(f[5]) == tm and any(numero(c) >= veces * numero(f[limite]) for c in f[7:13])
            for tm, veces, limite in ((30, 3, 2), (15, 1, 3)) for f in self.celda)
        self.respuestas = [texto(y), texto(p), "SI" if superado else "NO"]
        indice = INACEPTABLE if y > 1 else VERDICTOS[self.dia][0 if y <= 0.1 else 1]
        self.frases = [indice, PROBABILIDADES[0 if p <= 0.1 else 1 if p <= 5 else 2]]

    def entradas(self):
        """Las 401 entradas de la jornada guardada."""
        y, p, superado = self.respuestas
        return [c for f in self.celda for c in f] + self.corta + [y, p, *self.frases, superado]


def tabla_final(e, jornadas):
    tabla = [[""] * 9 for _ in range(18)]
    for R, fila in enumerate(tabla):
        fila[1] = e.agente[R // 6 + 1, R % 6 + 1][0]
        for d, jornada in jornadas.items():
            for columna, t in ((1 + d, jornada.celda[R][15]), (5 + d, jornada.corta[4 * R + 3])):
                if t:
                    fila[columna] = texto(numero(t))
        u, v, w = (numero(c) for c in fila[2:5])
        if u and v:
            fila[5] = texto(math.pow(u * v * w, 1.0 / 3.0))
    return tabla


def main():
    e = Evaluacion(sys.argv[1])
    jornadas = {d: Jornada(e, d) for d in range(1, e.jornadas + 1)}
    final = tabla_final(e, jornadas)
    distintas = 0
    guardadas = [(f"jornada {d}, entrada {i}", a, b) for d, j in jornadas.items()
                 for i, (a, b) in enumerate(zip(j.entradas(), e.hoja[d]), 1)]
    guardadas += [(f"tabla final, fila {R}, columna {c}", a, b) for R in range(1, 19)
                  for c, (a, b) in enumerate(zip(final[R - 1], e.final[R - 1]), 1)]
    for lugar, calculada, guardada in guardadas:
        if calculada != guardada:
            distintas += 1
            print(f"{lugar}: calculada {calculada!r}, guardada {guardada!r}", file=sys.stderr)
    comillas = lambda textos: ", ".join(f'"{t}"' for t in textos)
    for j in jornadas.values():
        print(f"    {{{comillas(j.respuestas)},\n     {comillas(j.frases)}}},")
    for fila in final:
        print(f"    {{{comillas(fila[2:])}}},")
    print(f"{len(guardadas)} celdas comparadas, {distintas} distintas", file=sys.stderr)
    return 1 if distintas else 0


if __name__ == "__main__":
    sys.exit(main())
