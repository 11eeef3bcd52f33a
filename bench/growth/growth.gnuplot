# Draws what an asset costs by how many there are: both axes logarithmic, a line for each figure.
set terminal svg size 900,560 font "DejaVu Sans,12" background rgb "white"
set output output
set logscale xy
set format x "10^{%L}"
set xlabel "assets in the company, or rows"
set ylabel "microseconds an asset"
set grid xtics ytics lc rgb "#dddddd"
set border 3 lc rgb "#666666"
set tics nomirror
set key outside right top spacing 1.3
# Colors that color-blind readers tell apart; each line has a mark of its own besides.
array colors[9] = ["#0072B2", "#D55E00", "#009E73", "#CC79A7", "#E69F00", "#56B4E9", "#000000", \
                   "#8B4513", "#6A3D9A"]
plot for [i = 0:last] data index i using 1:2 with linespoints lw 2 pt i + 4 ps 0.7 \
  lc rgb colors[i % 9 + 1] title columnheader(1)
