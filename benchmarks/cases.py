# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0

"""The cases: what is run for each side, and what is compared in it."""

import subprocess
from dataclasses import dataclass
from typing import Callable, List, Optional

from runs import BUILD, CLIENT, HOST, PROGRAMS, idle, served, started, told


@dataclass
class Row:
    """One line of the table. `kind`: how the goal is meant.

    "most", "least": the ratio of ours to the peer's; "more": ours less the peer's; "alone": ours, without a peer.
    Without a goal, a row is there to be read.
    """
    value: str
    title: str
    ours: str
    peer: str
    kind: str
    goal: Optional[float]
    unit: str
    theirs: Optional[str] = None  # the peer's value, where it has another name


@dataclass
class Case:
    name: str
    rows: List[Row]
    ours: Callable[[], dict]
    peer: Optional[Callable[[], dict]] = None


def sides(program, *arguments):
    """Both sides of a program, as functions without arguments."""
    return [lambda side=side: told(PROGRAMS / program, side, *arguments) for side in ("ours", "peer")]


def simple(name, program, row, *arguments):
    return Case(name, [row], *sides(program, *arguments))


def cipher(size):
    return simple("cipher", "bench_cipher",
                  Row(f"cipher-{size}", f"cipher, {size} bytes, both ways", "the link's routine",
                      "OpenSSL EVP, a context a message", "most", 1.0, "ns"), size)


def queue(entries):
    def ours():
        return told(PROGRAMS / "bench_queue", "ours", entries) | told(PROGRAMS / "bench_queue", "complete", entries)

    def peer():
        text = BUILD / f"queue-{entries}.json"
        with text.open("wb") as file:
            subprocess.run([PROGRAMS / "bench_queue", "text", str(entries)], stdout=file, check=True)
        return told(PROGRAMS / "bench_queue", "peer", entries) | told("node", CLIENT, "queue", text)

    title = f"tracklist of {entries:,} to `queueChanged`"
    return Case("queue", [
        Row(f"queue-{entries}", title, "`HalvoraPlayer`", "`QJsonDocument::fromJson` alone", "most", 1.3, "ms"),
        Row(f"queue-{entries}-wall", title, "`HalvoraPlayer`", "npm `mopidy`, to its objects", "most", 1.0, "ms"),
        Row(f"queue-{entries}-complete", f"tracklist of {entries:,} to its last album and artists", "`HalvoraPlayer`",
            "npm `mopidy`, to its objects", "most", None, "ms", theirs=f"queue-{entries}-wall"),
    ], ours, peer)


def browse(rows):
    return simple("browse", "bench_browse",
                  Row(f"browse-{rows}", f"directory of {rows:,} to a filled list", "player, controller, view",
                      "`QJsonDocument::fromJson` alone", "most", 1.5, "ms"), rows)


def requests_ours():
    with served("request_server") as (port, _):
        return told(PROGRAMS / "bench_requests", "ours", port)


def requests_peer():
    with served("request_server") as (port, _):
        return told("node", CLIENT, "requests", port)


def requests():
    def row(value, title, kind, goal, unit):
        return Row(value, f"2,000 requests, {title}", "`HalvoraPlayer`", "npm `mopidy`", kind, goal, unit)

    return Case("requests", [
        row("requests-in-turn", "one after another: calls a second", "least", 1.5, "/s"),
        row("requests-in-turn-processor", "one after another: processor", "most", 0.5, "ms"),
        row("requests-pipelined", "pipelined: calls a second", "least", 1.5, "/s"),
        row("requests-pipelined-processor", "pipelined: processor", "most", 0.5, "ms"),
        row("requests-memory", "memory at its peak", "most", 0.5, "MiB"),
        row("requests-memory-own", "memory at the end, without files", "most", None, "MiB"),
    ], requests_ours, requests_peer)


def stall(value, clock, goal):
    return Row(value, f"longest stall of the GUI thread meanwhile: {clock}", "our provider", "plain `Image`", "alone",
               goal, "ms")


def covers(side):
    with served("cover_server") as (port, _):
        return told(PROGRAMS / "bench_covers", side, port)


CASES = [
    cipher(16), cipher(64), cipher(256),
    simple("broad", "bench_broad", Row("broad", "one BROAD, from bytes to signals", "the way without the socket",
                                       "base64, OpenSSL, split", "most", 3, "ns")),
    simple("dump", "bench_dump", Row("dump", "state of 256 outputs and 64 sources, a message", "main thread",
                                     "the same with 16 outputs", "most", 1.2, "us")),
    requests(),
    queue(1000), queue(5000), queue(20000),
    browse(1000), browse(10000), browse(100000),
    simple("lookup", "bench_lookup", Row("lookup", "lookup of 30 rows", "in 100,000", "in 1,000", "most", 1.5, "us")),
    Case("covers", [
        Row("covers", "200 covers over HTTP, cold, to shown", "our provider", "plain `Image`", "most", 1.05, "ms"),
        stall("covers-stall", "less waiting for a core", 16),
        stall("covers-stall-wall", "wall", None),
        stall("covers-stall-processor", "processor alone", None),
    ], lambda: covers("ours"), lambda: covers("peer")),
    Case("start", [Row("start", "start to the first full frame, cold QML cache", "host, `--demo`",
                       "an empty window of the same modules", "more", 150, "ms")],
         lambda: started([HOST, "--demo"], True), lambda: started([PROGRAMS / "empty_window"], False)),
    Case("scroll", [
        Row("scroll", "scrolling 10,000 rows, a frame", "browse list", "`ListView` of a text and an image", "most", 1.5,
            "ms"),
        Row("scroll", "the same, against text drawn as ours", "browse list", "`ListView` of a native text and an image",
            "most", None, "ms", theirs="scroll-alike"),
        Row("scroll", "the same, against as many lines of it", "browse list", "`ListView` of three and an image", "most",
            None, "ms", theirs="scroll-all-lines"),
    ], lambda: told(PROGRAMS / "bench_scroll", "ours"),
         lambda: told(PROGRAMS / "bench_scroll", "peer") | told(PROGRAMS / "bench_scroll", "peer", "alike")
         | told(PROGRAMS / "bench_scroll", "peer", "all-lines")),
    Case("memory", [
        Row("memory-row", "memory of a row, before its details", "library list", "", "alone", 1024, "B"),
        Row("memory-row-whole", "the same with details and its album's three pictures", "library list", "", "alone",
            1024, "B"),
        Row("memory-row-own", "the same with three pictures of its own", "library list", "", "alone", None, "B"),
        Row("memory-entry", "memory of a queue entry, without pictures", "at rest", "", "alone", 1024, "B"),
        Row("memory-entry-whole", "the same with its album's three pictures", "at rest", "", "alone", 1024, "B"),
        Row("memory-entry-own", "the same with three pictures of its own", "at rest", "", "alone", None, "B"),
    ], lambda: told(PROGRAMS / "bench_memory", "ours")),
    Case("idle", [
        Row("idle", "idle, 8 players playing, a minute: processor", "host", "", "alone", 0.5, "%"),
        Row("idle-frames", "the same: frames drawn without a change", "host", "", "alone", 0, ""),
    ], idle),
]

# What is counted in instructions: the program with its arguments.
COUNTED = {
    "cipher-16": ["bench_cipher", "ours", "16"],
    "cipher-64": ["bench_cipher", "ours", "64"],
    "cipher-256": ["bench_cipher", "ours", "256"],
    "broad": ["bench_broad", "ours"],
    "queue-1000": ["bench_queue", "ours", "1000"],
    "queue-5000": ["bench_queue", "ours", "5000"],
    "queue-20000": ["bench_queue", "ours", "20000"],
}
