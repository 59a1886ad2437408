#!/bin/bash
# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0
#
# Renders the masters of this folder to the PNG files of the resource set.
# Usage: render.sh [target folder]      (default: src/resources/HalvoraImgs/Images of this tree)
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
target=${1:-$here/../src/resources/HalvoraImgs/Images}

# The masters are drawn in these two colours; all others come from them by substitution.
light='#eeeeed'
accents=('#6d99c8' '#fcbf29')   # by suffix: _0, _1

# One file, the master as it is.
plain=(airplay_alpha delete eqclose equilizer halvora library library_search matrix menu_dots modelA modelB
       next offline online open output pause play playlists prev queue refresh repeat save settings shuffle
       sound sound_small source_alpha)
# Two files: the accent of the master replaced by that of the suffix.
accented=(airplay_sel defaultcoverart mute mute_small playlistcoverart)
# Two files "_sel": the light of the idle picture replaced by the accent of the suffix.
selected=(halvora output repeat settings shuffle)

if ! command -v rsvg-convert >/dev/null; then
    echo "render.sh: rsvg-convert is missing; install the Debian package librsvg2-bin" >&2
    exit 1
fi

# masters <folder> <colour> <other colour>: a copy of all masters, since one may refer to another.
masters() {
    local master
    mkdir "$1"
    for master in "$here"/*.svg; do
        sed "s/$2/$3/g" "$master" > "$1/$(basename "$master")"
    done
}

# draw <masters' folder> <stem of the master> <stem of the picture>
draw() {
    rsvg-convert --format=png --output="$target/$3.png" "$1/$2.svg"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$target"

for stem in "${plain[@]}"; do
    draw "$here" "$stem" "$stem"
done
for suffix in 0 1; do
    masters "$work/accented_$suffix" "${accents[0]}" "${accents[$suffix]}"
    masters "$work/selected_$suffix" "$light" "${accents[$suffix]}"
    for stem in "${accented[@]}"; do
        draw "$work/accented_$suffix" "$stem" "${stem}_$suffix"
    done
    for stem in "${selected[@]}"; do
        draw "$work/selected_$suffix" "$stem" "${stem}_sel_$suffix"
    done
done
