"""The two numeric routines of `Module1`."""

from arithmetic import add, divide, exponential, logarithm, multiply, power, subtract

#             n: multiplier, exponent
FACTORS = {
    3: (0.7969, 0.1964),
    4: (0.763, 0.228),
    5: (0.7593, 0.2393),
    6: (0.7477, 0.251),
}

#             A,      B,      per cent
CURVES = (
    (1.0026, 0.2357, 0.001),
    (0.994, 0.2722, 0.01),
    (0.9991, 0.3272, 0.1),
    (0.9986, 0.4342, 1.0),
    (1.002, 0.6049, 5.0),
)


def MediaEstimada(record, samples, day, task, contaminant):
    """The estimated mean of the samples in places 1 to 6; stores MG and GSD."""
    n, logarithms = 0, 0.0
    for i in range(1, 7):
        if samples[i] == 0:
            break
        logarithms = add(logarithms, logarithm(samples[i]))
        n += 1
    if n == 0:
        return 0.0
    mean = divide(logarithms, float(n))
    q = 0.0
    for i in range(1, 7):
        if samples[i] == 0:
            break
        q = add(q, power(abs(subtract(mean, logarithm(samples[i]))), 2.0))
    # A single sample fails here: 0 / 0.
    s = power(divide(q, float(n - 1)), divide(1.0, 2.0))
    mg, gsd = exponential(mean), exponential(s)
    record.MG[day, task, contaminant] = mg
    record.GSD[day, task, contaminant] = gsd
    factor = 1.0
    if n in FACTORS:
        a, b = FACTORS[n]
        factor = multiply(a, exponential(multiply(b, gsd)))
    return multiply(mg, max(factor, 1.0))


def ProbabilidadExceso(ratio, dispersion):
    """The percentage of the first curve above `dispersion`."""
    if ratio <= 0:
        return 0.0
    for a, b, percent in CURVES:
        if multiply(a, power(ratio, b)) > dispersion:
            return percent
    return 50.0
