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

# Pickup: a celesta's high note
note p 0 1567.98 0.28 -6
layer pd synth 0.20 sine 4704 fade l 0.001 0.20 0.198 gain -18 pad 0 0.2
finish Pickup.wav 0.28 pa pb pc pd

# LetGo: a falling star: a run downwards with a trail of sparks
layer g1 synth 0.40 sine 1480/392 fade h 0.01 0.40 0.32 gain -8
layer g2 synth 0.40 sine 2960/784 fade h 0.01 0.40 0.36 gain -18
layer g3 synth 0.34 whitenoise bandpass 5200 1800h tremolo 22 80 fade h 0.02 0.34 0.3 gain -14
finish LetGo.wav 0.40 g1 g2 g3

# HitTube: a fingernail on a brass tube
layer h1 synth 0.20 sine 612 fade l 0.0008 0.20 0.199 gain -8
layer h2 synth 0.14 sine 1687 fade l 0.0008 0.14 0.139 gain -11
layer h3 synth 0.08 sine 3307 fade l 0.0006 0.08 0.079 gain -15
layer h4 synth 0.07 sine 240/200 fade l 0.001 0.07 0.068 gain -4
layer h5 synth 0.012 pinknoise highpass 1500 fade l 0.0004 0.012 0.011 gain -5 pad 0 0.1
finish HitTube.wav 0.22 h1 h2 h3 h4 h5

# PutInCont: four small bells upwards, ringing on
note n1 0 1046.5 0.40 -9
note n2 0.08 1318.5 0.40 -8
note n3 0.16 1567.98 0.42 -7
note n4 0.24 2093 0.46 -5
finish PutInCont.wav 0.70 n1a n1b n1c n1d n2a n2b n2c n2d n3a n3b n3c n3d n4a n4b n4c n4d
