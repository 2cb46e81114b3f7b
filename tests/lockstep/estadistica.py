"""The two numeric routines of `Module1`."""

from numeros import cociente, exponencial, logaritmo, potencia, producto, resta, suma

#             n: multiplier, exponent
FACTORES = {
    3: (0.7969, 0.1964),
    4: (0.763, 0.228),
    5: (0.7593, 0.2393),
    6: (0.7477, 0.251),
}

#             A,      B,      class
ESCALERA = (
    (1.0026, 0.2357, 0.001),
    (0.994, 0.2722, 0.01),
    (0.9991, 0.3272, 0.1),
    (0.9986, 0.4342, 1.0),
    (1.002, 0.6049, 5.0),
)


def MediaEstimada(registro, muestras, dia, tarea, contaminante):
    """The estimated mean of the samples in places 1 to 6; stores MG and GSD."""
    n, logaritmos = 0, 0.0
    for i in range(1, 7):
        if muestras[i] == 0:
            break
        logaritmos = suma(logaritmos, logaritmo(muestras[i]))
        n += 1
    if n == 0:
        return 0.0
    media = cociente(logaritmos, float(n))
    q = 0.0
    for i in range(1, 7):
        if muestras[i] == 0:
            break
        q = suma(q, potencia(abs(resta(media, logaritmo(muestras[i]))), 2.0))
    # A single sample fails here: 0 / 0.
    s = potencia(cociente(q, float(n - 1)), cociente(1.0, 2.0))
    mg, gsd = exponencial(media), exponencial(s)
    registro.MG[dia, tarea, contaminante] = mg
    registro.GSD[dia, tarea, contaminante] = gsd
    factor = 1.0
    if n in FACTORES:
        a, b = FACTORES[n]
        factor = producto(a, exponencial(producto(b, gsd)))
    return producto(mg, max(factor, 1.0))


def ProbabilidadExceso(razon, dispersion):
    """The class of the first curve above `dispersion`."""
    if razon <= 0:
        return 0.0
    for a, b, clase in ESCALERA:
        if producto(a, potencia(razon, b)) > dispersion:
            return clase
    return 50.0
