# The worked day's figures: estimated mean, geometric mean, geometric deviation and index.
samples <- list(c(120, 95, 150, 110), c(30, 45, 20, 35), c(15, 25, 10, 20))
limits <- c(192, 221, 442)
for (row in 1:3) {
  logs <- log(samples[[row]])
  mg <- exp(mean(logs))
  gsd <- exp(sd(logs))
  mean <- round(mg * max(1, 0.763 * exp(0.228 * gsd)), 2)
  cat(sprintf("%.2f", c(mean, mg, gsd, mean / limits[row])), "\n")
}
