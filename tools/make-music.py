#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0
"""Writes a small music library, computed from nothing, into a folder: tagged FLAC files with embedded covers.

    make-music.py FOLDER

Needs the command flac. The tracks are longer than 30 seconds, so that a player can be skipped and paused at ease.
"""

import array
import math
import pathlib
import struct
import subprocess
import sys
import zlib

RATE = 22050  # samples a second
COVER = 300  # pixels

# album, artist, year, the cover's two colours, then the tracks: title, base tone in Hz, seconds
ALBUMS = [
    ("Morning Ferry", "Lena Aldous", 2019, (224, 122, 95), (61, 64, 91),
     [("Cast Off", 220.0, 34), ("Gulls", 246.9, 41), ("Open Water", 261.6, 52)]),
    ("Northern Attic", "The Paper Kites of Ys", 2021, (42, 157, 143), (38, 70, 83),
     [("Rafters", 196.0, 37), ("Dust and Light", 293.7, 45), ("Skylight", 329.6, 39)]),
    ("Zimt & Öl", "Jörg Käfer", 2015, (233, 196, 106), (124, 62, 20),
     [("Übermorgen", 174.6, 36), ("Große Straße", 392.0, 48)]),
]


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def cover(first, second):
    """A PNG: one colour flowing into the other, with a disc in the middle."""
    rows = bytearray()
    for y in range(COVER):
        rows.append(0)
        for x in range(COVER):
            part = (x + y) / (2 * COVER)
            in_disc = math.hypot(x - COVER / 2, y - COVER / 2) < COVER / 4
            a, b = (second, first) if in_disc else (first, second)
            rows.extend(round(p + (q - p) * part) for p, q in zip(a, b))
    header = struct.pack(">IIBBBBB", COVER, COVER, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(bytes(rows)))
            + chunk(b"IEND", b""))


def second_of(tone):
    """One second of a soft chord, which may be repeated."""
    base = round(tone)  # whole waves in a second, so that repeating it makes no click
    return array.array("h", (
        round(6000 * sum(math.sin(2 * math.pi * base * part * i / RATE) / part for part in (1, 2, 3)))
        for i in range(RATE))).tobytes()


def write_album(folder, album, artist, year, first, second, tracks):
    target = folder / album
    target.mkdir(parents=True)
    picture = folder / "cover.png"
    picture.write_bytes(cover(first, second))
    for number, (title, tone, seconds) in enumerate(tracks, start=1):
        tags = {"TITLE": title, "ARTIST": artist, "ALBUMARTIST": artist, "ALBUM": album, "DATE": year,
                "TRACKNUMBER": number, "TRACKTOTAL": len(tracks)}
        subprocess.run(
            ["flac", "--totally-silent", "--fast", "--force-raw-format", "--endian=little", "--sign=signed",
             "--channels=1", "--bps=16", f"--sample-rate={RATE}", f"--picture={picture}",
             *(f"--tag={name}={value}" for name, value in tags.items()),
             f"--output-name={target / f'{number:02} {title}.flac'}", "-"],
            input=second_of(tone) * seconds, check=True)
    picture.unlink()


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make-music.py FOLDER")
    for album in ALBUMS:
        write_album(pathlib.Path(sys.argv[1]), *album)


main()
