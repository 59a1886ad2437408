# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0

"""One run of one side: a program of this folder that tells its values, or a whole program that is watched."""

import contextlib
import json
import os
import selectors
import subprocess
import tempfile
import time
from pathlib import Path

LONGEST_RUN = 300  # seconds
FRAME_RULES = "qt.scenegraph.time.renderloop=true"
FRAME = b"Frame rendered"
LINK_ENDS = 2  # of the connection between the client and a device in its own process
PAUSE = 0.2  # seconds without a frame, behind which the window is complete

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "bench"
PROGRAMS = BUILD / "benchmarks"
HOST = BUILD / "host" / "halvora-host"
CLIENT = ROOT / "benchmarks" / "mopidy-client.js"


class Failure(Exception):
    """What went wrong, in one sentence."""


def values_in(text):
    """The values that a program has told, by case."""
    return {line["case"]: line["value"] for line in map(json.loads, text.splitlines())}


def told(*command):
    """Runs a program to its end and gives its values by case."""
    environment = dict(os.environ, NODE_PATH=str(BUILD / "npm" / "node_modules"))
    try:
        done = subprocess.run(list(map(str, command)), stdout=subprocess.PIPE, env=environment, check=True,
                              timeout=LONGEST_RUN, text=True)
    except (subprocess.SubprocessError, OSError) as error:
        raise Failure(f"A run has failed: {error}") from error
    return values_in(done.stdout)


@contextlib.contextmanager
def served(program):
    """A server of this folder, for as long as the block lasts; gives its port and its process."""
    with subprocess.Popen([str(PROGRAMS / program)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                          text=True) as server:
        try:
            yield int(server.stdout.readline()), server
        finally:
            server.stdin.close()


@contextlib.contextmanager
def watched(command, home):
    """A program whose frames are told on its standard error; it is ended behind the block."""
    # Of the caches QML's alone is cold: those of fonts and shaders are the desktop's.
    environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home, XDG_CACHE_HOME=str(BUILD / "cache"),
                       QML_DISK_CACHE_PATH=os.path.join(home, "qml"), QT_LOGGING_RULES=FRAME_RULES,
                       HALVORA_PASSWORD="benchmark")
    process = subprocess.Popen(list(map(str, command)), stderr=subprocess.PIPE, env=environment, bufsize=0)
    try:
        yield process
    finally:
        process.kill()
        process.wait()
        process.stderr.close()


def frames_until(process, done):
    """The times of the frames that come before `done`, a function of the times so far and of now, says so."""
    frames = []
    with selectors.DefaultSelector() as selector:
        selector.register(process.stderr, selectors.EVENT_READ)
        while not done(frames, time.monotonic()):
            if not selector.select(timeout=0.02):
                continue
            text = os.read(process.stderr.fileno(), 65536)
            if not text:
                raise Failure("The program has ended by itself.")
            frames += [time.monotonic()] * text.count(FRAME)
    return frames


def connections(process):
    """How many ends of established TCP connections a process holds."""
    established = set()
    for text in Path(f"/proc/{process.pid}/net/tcp").read_text().splitlines()[1:]:
        fields = text.split()
        if fields[3] == "01":
            established.add(f"socket:[{fields[9]}]")
    held = 0
    for name in Path(f"/proc/{process.pid}/fd").iterdir():
        with contextlib.suppress(OSError):  # closed meanwhile
            held += os.readlink(name) in established
    return held


def started(command, follows):
    """Milliseconds to the last frame ahead of the first pause, with a cold QML cache. `follows`: whether this is the
    client at a device within the same process. Then a pause counts only when music servers have been called, which
    takes the device's state, lest one on the connecting page pass for the full frame; and frames come behind it: those
    of the players, which are there only when that state has been shown."""
    def rests(frames, now):
        if now - begin > 20:
            raise Failure("The window has not come to rest with all that belongs into it.")
        paused = bool(frames) and now - frames[-1] > PAUSE
        return paused and (not follows or connections(process) > LINK_ENDS)

    def goes_on(frames, now):
        if now - begin > 20:
            raise Failure("The players are not on show.")
        return bool(frames)

    with tempfile.TemporaryDirectory() as home:
        begin = time.monotonic()
        with watched(command, home) as process:
            frames = frames_until(process, rests)
            if follows:
                frames_until(process, goes_on)
    return {"start": (frames[-1] - begin) * 1e3}


def processor_seconds(process):
    """What all threads of a process have used so far."""
    seconds = 0.0
    for task in Path(f"/proc/{process.pid}/task").iterdir():
        seconds += int((task / "schedstat").read_text().split()[0]) / 1e9
    return seconds


def ask(server):
    server.stdin.write("\n")
    server.stdin.flush()
    return int(server.stdout.readline())


def idle(length=60, settling=8):
    """Processor time and frames of the host at rest, on a device with eight players that play."""
    with served("busy_house") as (port, house), tempfile.TemporaryDirectory() as home:
        command = [HOST, "--device", f"127.0.0.1:{port}", "--user", "benchmark"]
        with watched(command, home) as process:
            begin = time.monotonic()
            if not frames_until(process, lambda frames, now: now - begin > settling):
                raise Failure("The host has not told one frame while it settled, so that none at rest says nothing.")
            ask(house)
            before, begin = processor_seconds(process), time.monotonic()
            frames = frames_until(process, lambda frames, now: now - begin > length)
            used = processor_seconds(process) - before
            elapsed = time.monotonic() - begin
            if ask(house) != 8:
                raise Failure("Not all eight players are playing.")
    return {"idle": 100 * used / elapsed, "idle-frames": len(frames)}
