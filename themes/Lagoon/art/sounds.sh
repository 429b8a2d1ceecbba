#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes this theme's four sounds beside this file.
. "$(dirname "$0")/../../sound_layers.sh"
# bubble NAME DELAY FROM TO LENGTH GAIN: a bubble's rising tone
bubble() {
    layer "$1" synth "$5" sine "$3/$4" fade h 0.006 "$5" 0.03 gain "$6" pad "$2" 0.1
}

# Pickup: two quick bubbles
bubble p1 0 480 1150 0.10 -4
bubble p2 0.09 760 1700 0.08 -8
layer p3 synth 0.02 pinknoise bandpass 2400 1500h fade l 0.001 0.02 0.018 gain -12 pad 0 0.2
finish Pickup.wav 0.24 p1 p2 p3

# LetGo: something sinks
layer g1 synth 0.36 sine 420/170 fade h 0.03 0.36 0.2 gain -4
layer g2 synth 0.36 pinknoise lowpass 700 tremolo 16 60 fade h 0.05 0.36 0.25 gain -8
bubble g3 0.12 300 520 0.07 -12
bubble g4 0.22 260 450 0.07 -14
finish LetGo.wav 0.38 g1 g2 g3 g4

# HitTube: a dull blow under water
layer h1 synth 0.18 sine 150/95 fade l 0.001 0.18 0.178 gain -1
layer h2 synth 0.08 brownnoise lowpass 600 fade l 0.001 0.08 0.078 gain -1 pad 0 0.1
layer h3 synth 0.06 sine 420/330 fade l 0.001 0.06 0.058 gain -8 pad 0 0.1
bubble h4 0.10 520 760 0.05 -14
finish HitTube.wav 0.24 h1 h2 h3 h4

# PutInCont: a ship's bell behind a string of bubbles
bubble b1 0 500 900 0.08 -8
bubble b2 0.07 640 1150 0.08 -9
bubble b3 0.14 820 1500 0.08 -10
layer c1 synth 0.42 sine 1046.5 fade l 0.002 0.42 0.418 gain -5 pad 0.2 0.02
layer c2 synth 0.30 sine 2783 fade l 0.002 0.30 0.298 gain -15 pad 0.2 0.1
layer c3 synth 0.40 sine 1570 fade l 0.002 0.40 0.398 gain -11 pad 0.2 0.04
finish PutInCont.wav 0.62 b1 b2 b3 c1 c2 c3
