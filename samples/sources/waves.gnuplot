# Damped waves with the area between two of them filled; no text, so that shapes speak.
set terminal svg size 640,400 background rgb "#fdfcf8"
set output "gnuplot-waves.svg"
set samples 240
unset key
set border lw 1.2 lc rgb "#444444"
set format xy ""
set grid lc rgb "#d8d4c8" dashtype 3
set style fill solid 1.0 noborder
envelope(x) = exp(-x / 6)
plot [0:4 * pi] [-1.1:1.1] \
  "+" using 1:(envelope($1)):(-envelope($1)) with filledcurves lc rgb "#f4e3c1", \
  envelope(x) lw 1.5 dashtype 2 lc rgb "#b8862f", \
  -envelope(x) lw 1.5 dashtype 2 lc rgb "#b8862f", \
  envelope(x) * sin(2 * x) lw 3 lc rgb "#1f6f8b", \
  envelope(x) * cos(3 * x) lw 2 lc rgb "#a23b3b", \
  "+" every 12 using 1:(envelope($1) * sin(2 * $1)) with points pt 7 ps 0.9 lc rgb "#1f6f8b", \
  0 lw 1 lc rgb "#444444"
