#!/usr/bin/env Rscript
# The figures that review_test.cpp and report_test.cpp expect, from R alone.
#
#     Rscript reference.R            writes reference.csv beside itself
#     Rscript reference.R --check    computes it again and fails where it differs

gm <- function(x) exp(mean(log(x)))
gsd <- function(x) exp(sd(log(x)))
factor_of <- function(x) {
    n <- length(x)
    if (n == 2) return(1)
    a <- c(0.7969, 0.763, 0.7593, 0.7477)[n - 2]
    b <- c(0.1964, 0.228, 0.2393, 0.251)[n - 2]
    max(1, a * exp(b * gsd(x)))
}
mmp <- function(x) gm(x) * factor_of(x)
index <- function(x, ed, hours = 8) hours * mmp(x) / (8 * ed)
percent_above <- function(limit, x) {
    100 * plnorm(limit, mean(log(x)), sd(log(x)), lower.tail = FALSE)
}
exact_class <- function(percent) c(0.001, 0.01, 0.1, 1, 5, 50)[findInterval(percent,
    c(0.001, 0.01, 0.1, 1, 5), left.open = TRUE) + 1]
curves_class <- function(ratio, spread) {
    curves <- c(1.0026, 0.994, 0.9991, 0.9986, 1.002) *
        ratio^c(0.2357, 0.2722, 0.3272, 0.4342, 0.6049)
    c(0.001, 0.01, 0.1, 1, 5, 50)[match(TRUE, c(curves > spread, TRUE))]
}
two <- function(x) floor(x * 100 + 0.5) / 100
mixture_limit <- function(means, limits) sum(means) / sum(means / limits)

toluene <- c(120, 95, 150, 110)
xylene <- c(30, 45, 20, 35)
ethylbenzene <- c(15, 25, 10, 20)
butanone <- c(150, 200, 175)
manganese <- c(0.05, 0.1, 0.16)
mixture <- xylene + ethylbenzene
limit <- mixture_limit(c(mmp(xylene), mmp(ethylbenzene)), c(442, 884))
high <- c(30, 44, 20, 35) + ethylbenzene
high_limit <- mixture_limit(c(mmp(c(30, 44, 20, 35)), mmp(ethylbenzene)), c(30, 60))

figures <- c(
    toluene.mmp.c3.999 = mmp(c(120, 95, 999, 110)),
    toluene.index = index(toluene, 192),
    toluene.index.14h = index(toluene, 192, 14),
    toluene.index.ed100 = index(toluene, 100),
    toluene.mg = gm(toluene),
    toluene.gsd = gsd(toluene),
    toluene.percent = percent_above(384, toluene),
    quantile.1.of.4 = qnorm((1 - 3 / 8) / (4 + 1 / 4)),
    mixture.gsd.c3 = gsd(c(30, 45, 45, 35) + ethylbenzene),
    mixture.sum = index(xylene, 221) + index(ethylbenzene, 442),
    mixture.ec = limit,
    mixture.percent = percent_above(limit, mixture),
    high.mixture.percent = percent_above(high_limit, high),
    xylene.index = index(xylene, 221),
    butanone.index.2h = index(butanone, 600, 2),
    class.curves = curves_class(0.55 / two(gm(manganese)), two(gsd(manganese))),
    class.exact = exact_class(percent_above(0.55, manganese)),
    class.percent = percent_above(0.55, manganese),
    tenth.index = index(c(20, 20), 192),
    sum.index = 3 * index(c(6.5, 6.5), 192),
    unit.index = index(c(191.5, 191.5), 192),
    overall.mended = (two(index(toluene, 192))^2 * two(index(c(12, 9, 15, 11), 192)))^(1 / 3)
)

file <- sub("--file=", "", grep("--file=", commandArgs(), value = TRUE)[1])
table <- file.path(dirname(file), "reference.csv")
lines <- c("figure;value", sprintf("%s;%.17g", names(figures), figures))
if ("--check" %in% commandArgs(TRUE)) {
    kept <- read.csv2(table, dec = ".")
    same <- nrow(kept) == length(figures) && all(kept$figure == names(figures)) &&
        all(abs(kept$value - figures) <= 1e-12 * abs(figures))
    if (!same) stop("reference.csv isn't what reference.R computes")
} else {
    writeLines(lines, table)
}
