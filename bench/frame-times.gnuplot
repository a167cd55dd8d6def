# gnuplot -c bench/frame-times.gnuplot TIMES CHART.png: draws what tarvik-frame-times has printed.
set datafile missing "-"
stats ARG1 using 1 name "work" nooutput
stats ARG1 using 2 name "interval" nooutput
legend(name, median, most) = sprintf("%s: median %.3g ms, worst %.3g ms", name, median, most)

set terminal pngcairo size 1200,560 font "sans,11"
set output ARG2
set xlabel "frame"
set xtics out nomirror
set xrange [0:work_records]
set logscale y
set yrange [0.1:100]
set ytics 0.1,10 format "%g ms" out nomirror add (0.2, 0.5, 2, 5, 20, 50)
set grid ytics linecolor "#dddddd"
set border 3 linecolor "#888888"
set key at screen 0.06,0.98 top left Left reverse samplen 1
set tmargin 6

happened(word) = strlen(word) > 1 ? 100 : NaN
plot ARG1 using 0:2 with dots linecolor "#888888" notitle, \
     NaN with points pointtype 7 linecolor "#888888" \
         title legend("from frame to frame", interval_median, interval_max), \
     ARG1 using 0:1 with dots linecolor "#1a4dcc" notitle, \
     NaN with points pointtype 7 linecolor "#1a4dcc" \
         title legend("work in a frame", work_median, work_max), \
     ARG1 using 0:(happened(strcol(3))) with impulses linecolor "#cc1a1a" notitle, \
     ARG1 using 0:(happened(strcol(3))):3 with labels offset 0,1 textcolor "#cc1a1a" notitle
