# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0

"""Counts of instructions, by callgrind. They repeat exactly on one machine with the same packages, and so show
growth that no time would."""

import json
import os
import re
import subprocess
from pathlib import Path

from cases import COUNTED
from runs import PROGRAMS, Failure

RECORD = Path(__file__).resolve().parent / "instructions.json"
MOST_GROWTH = 1.05


def count(command):
    """Instructions of the measured part of one turn and its warming up."""
    environment = dict(os.environ, HALVORA_BENCH_TURNS="1", QT_HASH_SEED="0")
    try:
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", "--toggle-collect=Measurement::timed*", "--callgrind-out-file=/dev/null",
             str(PROGRAMS / command[0]), *command[1:]],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=environment, check=True, timeout=600, text=True)
    except (subprocess.SubprocessError, OSError) as error:
        raise Failure(f"The instructions of {command[0]} cannot be counted: {error}") from error
    counted = int(re.search(r"Collected : (\d+)", done.stderr).group(1))
    if counted == 0:
        raise Failure(f"{command[0]} has no measured part.")
    return counted


def record():
    """Writes the counts of now as those to be compared with."""
    RECORD.write_text(json.dumps({name: count(command) for name, command in COUNTED.items()}, indent=4) + "\n")


def check():
    """Compares with the record; False when a count has grown too much."""
    recorded = json.loads(RECORD.read_text())
    good = True
    for name, command in COUNTED.items():
        now = count(command)
        ratio = now / recorded[name]
        grown = ratio > MOST_GROWTH
        good = good and not grown
        print(f"{name:12} {now:>14,} instructions   {recorded[name]:>14,} recorded   {100 * (ratio - 1):+6.2f} %   "
              f"{'GROWN' if grown else 'kept'}", flush=True)
    return good
