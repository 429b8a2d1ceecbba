#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes this theme's four sounds beside this file.
. "$(dirname "$0")/../../sound_layers.sh"
# note NAME DELAY PITCH LENGTH GAIN: a bell note: root, octave, bell partial, hum
note() {
    p2=$(awk "BEGIN{print $3*2.003}"); p3=$(awk "BEGIN{print $3*2.76}"); p5=$(awk "BEGIN{print $3*0.5}")
    layer "$1a" synth "$4" sine "$3"  fade l 0.003 "$4" "$4" gain "$5" pad "$2" 0.05
    layer "$1b" synth "$4" sine "$p2" fade l 0.002 "$4" "$4" gain "$5" gain -13 pad "$2" 0.05
    layer "$1c" synth 0.12 sine "$p3" fade l 0.001 0.12 0.119 gain "$5" gain -16 pad "$2" 0.5
    layer "$1d" synth "$4" sine "$p5" fade l 0.006 "$4" "$4" gain "$5" gain -17 pad "$2" 0.05
}

# Pickup: a light glass pluck
layer p1 synth 0.30 sine 2093 fade l 0.001 0.30 0.298 gain -4
layer p2 synth 0.14 sine 5776 fade l 0.001 0.14 0.138 gain -15 pad 0 0.2
layer p3 synth 0.30 pluck 1046.5 gain -7 highpass 700 fade l 0.001 0.30 0.28 gain -6
layer p4 synth 0.010 whitenoise gain -7 highpass 5000 fade h 0.0005 0.010 0.009 gain -8 pad 0 0.3
layer p5 synth 0.22 sine 3136 fade l 0.001 0.22 0.218 gain -13 pad 0.018 0.1
finish Pickup.wav 0.30 p1 p2 p3 p4 p5

# LetGo: a soft slide downwards with air in it
layer g1 synth 0.38 sine 720/300 fade l 0.035 0.38 0.34 gain -8
layer g2 synth 0.20 pinknoise bandpass 1300 400h fade h 0.06 0.20 0.13 gain -1 pad 0 0.25
layer g3 synth 0.22 pinknoise bandpass 820 260h fade h 0.07 0.22 0.14 gain -1 pad 0.08 0.2
layer g4 synth 0.22 pinknoise bandpass 480 160h fade h 0.07 0.22 0.14 gain -1 pad 0.16 0.1
finish LetGo.wav 0.38 g1 g2 g3 g4

# HitTube: a short dull knock, then a slight rattle
layer h1 synth 0.15 sine 300/215 fade l 0.001 0.15 0.148 gain -2 pad 0 0.2
layer h2 synth 0.05 brownnoise lowpass 1100 fade l 0.0005 0.05 0.049 gain -1 pad 0 0.3
layer h3 synth 0.08 sine 548 fade l 0.001 0.08 0.079 gain -8 pad 0 0.2
layer r1 synth 0.030 sine 760 fade l 0.0007 0.030 0.029 gain -15 pad 0.085 0.2
layer r2 synth 0.026 sine 820 fade l 0.0007 0.026 0.025 gain -18 pad 0.135 0.2
layer r3 synth 0.022 sine 790 fade l 0.0007 0.022 0.021 gain -21 pad 0.172 0.2
layer r4 synth 0.012 pinknoise bandpass 1500 900h fade l 0.0005 0.012 0.011 gain -10 pad 0.085 0.2
layer r5 synth 0.012 pinknoise bandpass 1700 900h fade l 0.0005 0.012 0.011 gain -14 pad 0.135 0.2
finish HitTube.wav 0.24 h1 h2 h3 r1 r2 r3 r4 r5

# PutInCont: two bell notes, a fifth apart, ringing out
note n1 0 783.99 0.34 -6
note n2 0.13 1174.66 0.46 -3
finish PutInCont.wav 0.60 n1a n1b n1c n1d n2a n2b n2c n2d
