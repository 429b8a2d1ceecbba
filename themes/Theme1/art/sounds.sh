#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes this theme's four sounds beside this file.
. "$(dirname "$0")/../../sound_layers.sh"
# bar NAME DELAY PITCH LENGTH GAIN: a wooden bar: root, its fourth partial, a soft knock
bar() {
    p4=$(awk "BEGIN{print $3*3.93}")
    layer "$1a" synth "$4" sine "$3" fade l 0.002 "$4" "$4" gain "$5" pad "$2" 0.1
    layer "$1b" synth 0.09 sine "$p4" fade l 0.001 0.09 0.089 gain "$5" gain -11 pad "$2" 0.4
    layer "$1c" synth 0.02 brownnoise lowpass 1800 fade l 0.0005 0.02 0.019 gain "$5" gain -8 pad "$2" 0.5
}

# Pickup: one high wooden bar with a short chirp
bar p 0 1318.5 0.22 -5
layer pd synth 0.07 sine 2637/3520 fade h 0.015 0.07 0.04 gain -14 pad 0.06 0.2
finish Pickup.wav 0.26 pa pb pc pd

# LetGo: a leaf that sinks: breath and a slow slide down
layer g1 synth 0.34 sine 880/440 fade h 0.05 0.34 0.26 gain -9
layer g2 synth 0.34 sine 884/441 fade h 0.05 0.34 0.26 gain -13
layer g3 synth 0.30 pinknoise bandpass 1000 500h fade h 0.08 0.30 0.2 gain -6 pad 0 0.1
finish LetGo.wav 0.36 g1 g2 g3

# HitTube: two knuckles on a flowerpot
layer h1 synth 0.12 sine 370/330 fade l 0.001 0.12 0.119 gain -3 pad 0 0.2
layer h2 synth 0.06 sine 905 fade l 0.001 0.06 0.059 gain -10 pad 0 0.2
layer h3 synth 0.03 brownnoise lowpass 1500 fade l 0.0005 0.03 0.029 gain -3 pad 0 0.2
layer h4 synth 0.10 sine 350/315 fade l 0.001 0.10 0.099 gain -9 pad 0.09 0.1
layer h5 synth 0.02 brownnoise lowpass 1500 fade l 0.0005 0.02 0.019 gain -9 pad 0.09 0.2
finish HitTube.wav 0.22 h1 h2 h3 h4 h5

# PutInCont: three wooden bars upwards, C E G
bar a 0 523.25 0.30 -6
bar b 0.10 659.25 0.32 -5
bar c 0.20 783.99 0.36 -4
finish PutInCont.wav 0.58 aa ab ac ba bb bc ca cb cc
