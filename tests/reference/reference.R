# A third computation, in R's Doubles and with R's own normal distribution: Rscript reference.R
# <folder>. Exit status 1 where a figure of the tables differs.

folder <- commandArgs(trailingOnly = TRUE)[1]
sets <- read.csv(file.path(folder, "data_sets.csv"), colClasses = "character")

ladder <- data.frame(
    a = c(1.0026, 0.994, 0.9991, 0.9986, 1.002),
    b = c(0.2357, 0.2722, 0.3272, 0.4342, 0.6049),
    class = c(0.001, 0.01, 0.1, 1, 5)
)
class_of <- function(ratio, deviation) {
    above <- ladder$a * ratio^ladder$b > deviation
    if (any(above)) ladder$class[which(above)[1]] else 50
}

a <- c(1, 1, 0.7969, 0.763, 0.7593, 0.7477)
b <- c(0, 0, 0.1964, 0.228, 0.2393, 0.251)
usable <- function(text) {
    values <- as.numeric(strsplit(text, " ")[[1]])
    values[cumsum(values == 0) == 0]
}

faults <- 0
compared <- 0
expect <- function(id, what, value, table, tolerance, least = 0) {
    compared <<- compared + 1
    if (!isTRUE(abs(value - table) <= tolerance * max(abs(table), least))) {
        faults <<- faults + 1
        cat(sprintf("%s: %s is %.17g, in the table %.17g\n", id, what, value, table))
    }
}

for (i in seq_len(nrow(sets))) {
    set <- sets[i, ]
    x <- usable(set$samples)
    if (set$outcome == "one usable sample") {
        expect(set$id, "usable samples", length(x), 1, 0)
        next
    }
    logs <- log(x)
    n <- length(x)
    gsd <- exp(sd(logs))
    mean <- exp(mean(logs)) * max(1, a[n] * exp(b[n] * gsd))
    if (set$outcome == "mean too large") {
        expect(set$id, "finite mean", is.finite(mean), FALSE, 0)
        next
    }
    tolerance <- 1e-13 * max(1, gsd)
    expect(set$id, "mg", exp(mean(logs)), as.numeric(set$mg), 1e-13)
    expect(set$id, "gsd", gsd, as.numeric(set$gsd), 1e-13)
    expect(set$id, "mean", mean, as.numeric(set$mean), tolerance)
    if (set$outcome != "shown") next
    ratio <- as.numeric(set$ec_plus) / as.numeric(set$mg_plus)
    deviation <- as.numeric(set$gsd_plus)
    expect(set$id, "class", class_of(ratio, deviation), as.numeric(set$prob), 0)
    if (deviation == 1) next
    # The logarithm of the tail: far out the tail itself is no Double.
    tail <- pnorm(log(ratio) / log(deviation), lower.tail = FALSE, log.p = TRUE)
    # Split, since the table's numbers go below the smallest Double.
    table <- strsplit(set$tail_percent, "e")[[1]]
    expect(set$id, "logarithm of the tail", tail,
           log(as.numeric(table[1])) + (as.numeric(table[2]) - 2) * log(10), 1e-8, 1)
}
cat(sprintf("%d figures of %d data sets compared, %d differ\n", compared, nrow(sets), faults))
quit(status = if (faults > 0 || compared < 5000) 1 else 0)
