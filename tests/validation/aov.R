# SPDX-License-Identifier: GPL-3.0-or-later
# Analyses of variance of many Latin squares: Rscript aov.R SQUARES RESULTS
# One line a square: sums of squares of rows, columns, treatments and error, F of the first three.
files <- commandArgs(trailingOnly = TRUE)
cells <- read.csv(files[1])
analysis <- function(square) {
    model <- aov(x ~ factor(row) + factor(column) + factor(treatment), data = square)
    # summary() also warns of fits that are nearly perfect, which stiff squares are not.
    table <- summary(model)[[1]]
    numbers <- c(table[["Sum Sq"]], table[["F value"]][1:3])
    paste(c(square$name[1], sprintf("%.17e", numbers)), collapse = ",")
}
squares <- split(cells, factor(cells$name, levels = unique(cells$name)))
writeLines(vapply(squares, analysis, ""), files[2])
