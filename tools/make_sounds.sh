#!/usr/bin/env bash
# make_sounds.sh - (re)create all sixteen Skitterweb sound files in assets/sounds/.
#
# Usage:  tools/make_sounds.sh [OUTPUT_DIR]      (default: <repo>/assets/sounds)
#
# Uses Debian packages only: espeak-ng (speech), sox (effects, tone synthesis),
# lame (MP3 encoding) and libsox-fmt-mp3 (so soxi/sox can read the result back).
# Missing packages are installed with apt-get (non-interactive; needs root).
#
# Everything is deterministic: fixed voices, fixed effect parameters, sox run in
# repeatable mode (-R) without dither (-D), no random choices.  Output: mono,
# 44100 Hz, 64 kbit/s CBR MP3, no ID3 tags.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
out="${1:-$here/../assets/sounds}"
mkdir -p "$out"
out="$(cd "$out" && pwd)"

# ---------------------------------------------------------------- packages --
need=()
for pkg in espeak-ng sox libsox-fmt-mp3 lame; do
    dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" \
        || need+=("$pkg")
done
if ((${#need[@]})); then
    echo "installing: ${need[*]}" >&2
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${need[@]}" >/dev/null
fi

tmp="$(mktemp -d)"
trap 'rm -rf "$tmp"' EXIT

RATE=44100
# Levels: voices peak at -1 dBFS; the synthetic effects are normalised lower
# (-3 to -10 dBFS peak) so that their loudness (RMS) sits near the voices'.
SOX=(sox -R -D -V1)          # repeatable, no dither, only errors

# encode WAV -> MP3 (mono, 64 kbit/s CBR, no tags)
encode() { # in.wav out.mp3
    lame --quiet --noreplaygain -m m -b 64 -q 2 --resample 44.1 "$1" "$2"
}

# ------------------------------------------------------------------ voice --
# Computer voice: espeak-ng's robotic "robosoft2" variant, then a band-limited
# "speaker" tone, a short flanger for a metallic edge and a light slap echo.
VOICE="en-us+robosoft2"
MAXVOICE=1.90                # seconds; longer phrases are sped up to fit

say() { # "text" "file name without .mp3"
    local text="$1" name="$2"
    local raw="$tmp/raw.wav" fx="$tmp/fx.wav" fit="$tmp/fit.wav"
    espeak-ng -v "$VOICE" -s 160 -p 38 -a 160 -w "$raw" "$text"
    # trim leading/trailing silence, tone colour, metal, echo, loudness
    "${SOX[@]}" "$raw" -r "$RATE" -c 1 -b 16 "$fx" \
        silence 1 0.01 0.3% reverse silence 1 0.01 0.3% reverse \
        rate -v "$RATE" \
        highpass 180 lowpass 4800 \
        flanger 0 1.2 0 60 3 sine 25 lin \
        echo 0.85 0.75 45 0.22 \
        gain -n -1.5
    # keep the phrase short: speed it up (pitch kept) if it is too long
    local d factor
    d="$(soxi -D "$fx")"
    factor="$(awk -v d="$d" -v m="$MAXVOICE" 'BEGIN{ f = d/(m-0.12); if (f < 1) f = 1; printf "%.3f", f }')"
    "${SOX[@]}" "$fx" "$fit" tempo -s "$factor" \
        fade t 0.005 -0 0.06 pad 0.03 0.06 gain -n -1
    encode "$fit" "$out/$name.mp3"
}

say "Skitter web online."        "comp-program start"
say "New game?"                  "comp-new game"
say "Abort current game?"        "comp-abort game"
say "Connection lost."           "comp-dead"
say "Game over."                 "comp-game over"
say "Site hit!"                  "comp-level complete"
say "Extra reconnect."           "comp-extra life"
say "New webmaster."             "comp-webmaster qualify"
say "Option changed."            "comp-option change"
say "Save debug log?"            "comp-save debug log"
say "Goodbye."                   "comp-goodbye"
say "Difficulty increased."      "comp-increase difficulty"

# ---------------------------------------------------------------- effects --
# tone LEN TYPE FREQ [extra synth args...] -> $tmp/<name>.wav helper
tone() { # out.wav length type freq fadein fadeout [more effects...]
    local o="$1" len="$2" type="$3" freq="$4" fi="$5" fo="$6"; shift 6
    "${SOX[@]}" -n -r "$RATE" -c 1 -b 16 "$o" synth "$len" "$type" "$freq" \
        fade q "$fi" -0 "$fo" "$@"
}

# powerup2: notice / error blip - two-tone descending (square+sine, soft edges)
tone "$tmp/b1s.wav" 0.11 square 988 0.004 0.02 gain -16
tone "$tmp/b1t.wav" 0.11 sine   988 0.004 0.02 gain -6
tone "$tmp/b2s.wav" 0.20 square 659 0.004 0.08 gain -16
tone "$tmp/b2t.wav" 0.20 sine   659 0.004 0.08 gain -6
"${SOX[@]}" -m "$tmp/b1s.wav" "$tmp/b1t.wav" "$tmp/b1.wav"
"${SOX[@]}" -m "$tmp/b2s.wav" "$tmp/b2t.wav" "$tmp/b2.wav"
"${SOX[@]}" "$tmp/b1.wav" "$tmp/b2.wav" "$tmp/blip.wav" pad 0 0.04 gain -n -10
encode "$tmp/blip.wav" "$out/powerup2.mp3"

# question2: rising two-tone query (second tone glides up a little: "hm?")
tone "$tmp/q1.wav" 0.12 triangle 587 0.005 0.03 gain -4
"${SOX[@]}" -n -r "$RATE" -c 1 -b 16 "$tmp/q2.wav" synth 0.24 triangle 830:900 \
    fade q 0.005 -0 0.10 gain -4
"${SOX[@]}" "$tmp/q1.wav" "$tmp/q2.wav" "$tmp/query.wav" pad 0 0.04 \
    echo 0.8 0.6 70 0.18 gain -n -7
encode "$tmp/query.wav" "$out/question2.mp3"

# ammopu3: link / teleport zap - fast exponential sweep up with a buzzy layer
"${SOX[@]}" -n -r "$RATE" -c 1 -b 16 "$tmp/z1.wav" synth 0.32 sine 180/3200 \
    fade q 0.003 -0 0.08 gain -3
"${SOX[@]}" -n -r "$RATE" -c 1 -b 16 "$tmp/z2.wav" synth 0.32 sawtooth 90/1600 \
    tremolo 38 70 lowpass 3500 fade q 0.003 -0 0.10 gain -14
"${SOX[@]}" -m "$tmp/z1.wav" "$tmp/z2.wav" "$tmp/zap.wav" \
    phaser 0.8 0.74 3 0.4 2 -t pad 0 0.05 gain -n -6
encode "$tmp/zap.wav" "$out/ammopu3.mp3"

# jad0025a3: bright bonus chime - C6 E6 G6 C7 arpeggio, bell-like decays
notes=(1046.50 1318.51 1567.98 2093.00)
parts=()
for i in "${!notes[@]}"; do
    f="${notes[$i]}"
    start="$(awk -v i="$i" 'BEGIN{ printf "%.3f", i*0.075 }')"
    # fundamental + a quiet octave partial, exponential-ish decay via fade
    "${SOX[@]}" -n -r "$RATE" -c 1 -b 16 "$tmp/n${i}a.wav" synth 0.60 sine "$f" \
        fade q 0.003 -0 0.56 gain -6
    "${SOX[@]}" -n -r "$RATE" -c 1 -b 16 "$tmp/n${i}b.wav" synth 0.60 sine \
        "$(awk -v f="$f" 'BEGIN{ printf "%.2f", f*2.0 }')" fade t 0.003 -0 0.40 gain -18
    "${SOX[@]}" -m "$tmp/n${i}a.wav" "$tmp/n${i}b.wav" "$tmp/n${i}.wav" pad "$start" 0
    parts+=("$tmp/n${i}.wav")
done
"${SOX[@]}" -m "${parts[@]}" "$tmp/arp.wav"
# (kept as separate sox runs: chaining reverb with fade/trim confuses sox's
#  idea of the audio length)
"${SOX[@]}" "$tmp/arp.wav" "$tmp/chime.wav" pad 0 0.06 reverb 20 50 60 gain -n -3
encode "$tmp/chime.wav" "$out/jad0025a3.mp3"

# ----------------------------------------------------------------- report --
for f in "$out"/*.mp3; do
    printf '%-34s %6s bytes  %5.2f s\n' "$(basename "$f")" "$(stat -c %s "$f")" \
        "$(soxi -D "$f")"
done
