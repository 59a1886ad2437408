#!/bin/bash
# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0
#
# Checks the pictures of the resource set: the names, the exact sizes, the palette, and that each of them is
# what render.sh makes of the masters today. Decoded pixels are compared byte by byte: one version of librsvg
# renders the same pixels every time. After a new version that shades edges otherwise, render and commit anew.
# Usage: check.sh [folder of the pictures]      (default: src/resources/HalvoraImgs/Images of this tree)
set -euo pipefail
export LC_ALL=C

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
pictures=${1:-$here/../src/resources/HalvoraImgs/Images}

declare -A palette=([light]='#EEEEED' [accent0]='#6D99C8' [accent1]='#FCBF29'
                    [green]='#3FAE49' [red]='#D9403A')

# Name, size, the colours that occur in full; no other colour of the palette does.
table="
airplay_alpha      100x75   light
airplay_sel_0      180x180  light accent0
airplay_sel_1      180x180  light accent1
defaultcoverart_0  180x180  light accent0
defaultcoverart_1  180x180  light accent1
delete             40x40    light
eqclose            31x31    light
equilizer          40x40    light
halvora            75x65    light
halvora_sel_0      75x65    accent0
halvora_sel_1      75x65    accent1
library            40x40    light
library_search     40x40    light
matrix             40x40    light
menu_dots          20x8     light
modelA             340x255  light
modelB             340x255  light
mute_0             40x40    accent0
mute_1             40x40    accent1
mute_small_0       25x25    accent0
mute_small_1       25x25    accent1
next               40x40    light
offline            20x20    red
online             20x20    green
open               40x40    light
output             75x65    light
output_sel_0       75x65    accent0
output_sel_1       75x65    accent1
pause              40x40    light
play               40x40    light
playlistcoverart_0 128x128  light accent0
playlistcoverart_1 128x128  light accent1
playlists          40x40    light
prev               40x40    light
queue              40x40    light
refresh            40x40    light
repeat             40x40    light
repeat_sel_0       40x40    accent0
repeat_sel_1       40x40    accent1
save               40x40    light
settings           75x65    light
settings_sel_0     75x65    accent0
settings_sel_1     75x65    accent1
shuffle            40x40    light
shuffle_sel_0      40x40    accent0
shuffle_sel_1      40x40    accent1
sound              40x40    light
sound_small        25x25    light
source_alpha       100x75   light
"

failures=0
fail() {
    echo "check.sh: $*" >&2
    failures=$((failures + 1))
}

names() { awk 'NF { print $1 ".png" }' <<< "$table" | sort; }

check_names() {
    local name
    while read -r name; do fail "missing: $name"; done < <(comm -23 <(names) <(ls -A "$1"))
    while read -r name; do fail "surplus: $name"; done < <(comm -13 <(names) <(ls -A "$1"))
}

# check_colours <name> <colours that must occur>
check_colours() {
    local name=$1 colour seen
    shift
    seen=$(convert "$pictures/$name.png" -depth 8 -unique-colors txt:-)
    for colour in "${!palette[@]}"; do
        if [[ " $* " == *" $colour "* ]]; then
            grep -q "${palette[$colour]}\(FF\)\? " <<< "$seen" || fail "$name.png lacks the colour $colour"
        elif grep -q "${palette[$colour]}\(FF\)\? " <<< "$seen"; then
            fail "$name.png has the colour $colour"
        fi
    done
}

# The covers are opaque, everything else stands on a transparent ground.
ground() {
    case $1 in
        airplay_sel_*|defaultcoverart_*|playlistcoverart_*) echo opaque ;;
        *) echo transparent ;;
    esac
}

# describe <file>: format, size and ground
describe() {
    identify -format '%m %wx%h %[opaque]' "$1" | sed 's/[Tt]rue$/opaque/; s/[Ff]alse$/transparent/'
}

check_pixels() {
    if ! convert "$pictures/$1.png" -depth 8 "rgba:$work/committed" ||
        ! convert "$fresh/$1.png" -depth 8 "rgba:$work/rendered" ||
        ! cmp -s "$work/committed" "$work/rendered"; then
        fail "$1.png is not what its master renders to"
    fi
}

for tool in convert identify; do
    if ! command -v "$tool" >/dev/null; then
        echo "check.sh: $tool is missing; install the Debian package imagemagick" >&2
        exit 1
    fi
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fresh=$work/fresh
"$here/render.sh" "$fresh"

check_names "$pictures"
while read -r name size colours; do
    [[ -n $name && -f $pictures/$name.png ]] || continue
    expected="PNG $size $(ground "$name")"
    found=$(describe "$pictures/$name.png") || found='no picture'
    if [[ $found != "$expected" ]]; then
        fail "$name.png is $found, not $expected"
        continue
    fi
    # shellcheck disable=SC2086  # the colours are words
    check_colours "$name" $colours
    check_pixels "$name"
done <<< "$table"

if ((failures > 0)); then
    echo "check.sh: $failures failures" >&2
    exit 1
fi
echo "check.sh: $(names | wc -l) pictures are as they should be"
