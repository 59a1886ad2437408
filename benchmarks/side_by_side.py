#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0

"""Runs the cases side by side and prints one table. Started by ./bench, which builds and installs what this needs."""

import argparse
import datetime
import operator
import os
import platform
import statistics
import subprocess
import sys
from pathlib import Path

import instructions
from cases import CASES
from runs import Failure

PAGE = Path(__file__).resolve().parent.parent / "docs" / "performance.md"
FEWEST_RUNS = 9  # of each side, for figures that count
MARKS = ("<!-- The table, written by ./bench --write -->", "<!-- The end of the table -->")


def runs_of(case, runs, turn):
    """One run of each side; who is first changes from turn to turn."""
    order = [("ours", case.ours), ("peer", case.peer)]
    for side, run in order if turn % 2 == 0 else reversed(order):
        if run:
            for value, number in run().items():
                runs.setdefault((side, value), []).append(number)


def measure(cases, count):
    """The values of all runs, by side and name. The cases take turns, so that no one has the machine's worst time."""
    runs = {}
    for turn in range(count):
        for case in cases:
            print(f"\rrun {turn + 1} of {count}: {case.name:<10}", end="", file=sys.stderr, flush=True)
            runs_of(case, runs, turn)
    print("\r" + " " * 40 + "\r", end="", file=sys.stderr)
    return runs


def spread(values):
    """The distance of the quartiles; of two values their distance."""
    if len(values) < 2:
        return 0.0
    first, _, third = statistics.quantiles(values, n=4, method="inclusive")
    return third - first


def shown(value, unit):
    digits = 0 if abs(value) >= 1000 else 1 if abs(value) >= 100 else 2
    return f"{value:,.{digits}f} {unit}".strip()


def compared(row, ours, peer):
    """The numbers of all turns that are compared with the goal."""
    if row.kind == "alone":
        return ours
    compare = operator.sub if row.kind == "more" else operator.truediv
    return [compare(a, b) for a, b in zip(ours, peer)]


def read(row, numbers):
    """How they read: with a digit more where they are near the goal, lest rounding meets it."""
    middle = statistics.median(numbers)
    near = row.goal and abs(middle - row.goal) <= 0.02 * row.goal
    digits = (0 if row.kind == "more" else 2) + (1 if near else 0)
    sign = "+" if row.kind == "more" else ""
    unit = row.unit if row.kind in ("more", "alone") else ""
    return f"{middle:{sign},.{digits}f} ± {spread(numbers):.{digits}f} {unit}".strip()


def goal_of(row):
    if row.goal is None:
        return "-"
    number = f"{row.goal:g}"
    return {"most": f"at most {number}", "least": f"at least {number}", "more": f"at most +{number} {row.unit}",
            "alone": f"at most {number} {row.unit}".strip()}[row.kind]


def is_met(row, number):
    if row.goal is None:
        return None
    return number >= row.goal if row.kind == "least" else number <= row.goal


def line(row, runs):
    """The cells of one row, and whether its goal is met; None without a goal."""
    ours = runs[("ours", row.value)]
    peer = runs.get(("peer", row.theirs or row.value), [])
    numbers = compared(row, ours, peer)
    met = is_met(row, statistics.median(numbers))
    theirs = f"{row.peer}: {shown(statistics.median(peer), row.unit)}" if peer else row.peer or "-"
    return [row.title, f"{row.ours}: {shown(statistics.median(ours), row.unit)}", theirs, read(row, numbers),
            goal_of(row), {None: "-", True: "met", False: "NOT MET"}[met]], met


def table(cases, runs):
    """The lines of a Markdown table that is also readable as it is, and whether all goals are met."""
    rows = [line(row, runs) for case in cases for row in case.rows]
    cells = [["Case", "Ours", "Peer", "Ratio (median ± spread)", "Goal", "Met"]] + [row for row, _ in rows]
    widths = [max(len(row[column]) for row in cells) for column in range(6)]
    lines = ["| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |" for row in cells]
    lines.insert(1, "| " + " | ".join("-" * width for width in widths) + " |")
    return lines, all(met is not False for _, met in rows)


def first_line(*command):
    """What a program says first; empty where there is no such program, or where it fails."""
    try:
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True)
    except (subprocess.SubprocessError, OSError):
        return ""
    return done.stdout.splitlines()[0] if done.stdout else ""


def system():
    """The system's name as it calls itself."""
    try:
        return platform.freedesktop_os_release()["PRETTY_NAME"]
    except (KeyError, OSError):
        return platform.platform()


def processor():
    for text in Path("/proc/cpuinfo").read_text().splitlines():
        if text.startswith("model name"):
            return text.split(":", 1)[1].strip()
    return platform.machine()


def machine(count):
    """What the numbers were measured on."""
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return (f"{datetime.date.today().isoformat()}, {count} runs of each side: {processor()}, {os.cpu_count()} cores, "
            f"{memory:.0f} GiB, no graphics card; {system()}, "
            f"Linux {platform.release()}, Qt {first_line('qmake', '-query', 'QT_VERSION') or 'unknown'}, "
            f"{first_line('openssl', 'version') or 'OpenSSL unknown'}, "
            f"Node.js {first_line('node', '--version') or 'unknown'}.")


def write(lines, about):
    before, _, rest = PAGE.read_text().partition(MARKS[0])
    _, _, after = rest.partition(MARKS[1])
    PAGE.write_text("\n".join([before + MARKS[0], "", about, "", *lines, "", MARKS[1] + after]))


def arguments():
    names = sorted({case.name for case in CASES})
    parser = argparse.ArgumentParser(prog="bench", description="Measures the client against its peers.")
    parser.add_argument("cases", nargs="*", metavar="CASE", help=f"only these: {', '.join(names)}")
    parser.add_argument("--runs", type=int, default=FEWEST_RUNS,
                        help=f"runs of each side; {FEWEST_RUNS} or more for figures that count")
    parser.add_argument("--write", action="store_true", help="write the table into docs/performance.md")
    parser.add_argument("--check", action="store_true", help="count instructions, and fail when one count has grown")
    parser.add_argument("--record", action="store_true", help="record the counts of instructions")
    options = parser.parse_args()
    unknown = [name for name in options.cases if name not in names]
    if unknown:
        parser.error(f"The case \"{unknown[0]}\" is not known; there are {', '.join(names)}.")
    if options.runs < 1:
        parser.error("--runs needs a number from 1 on.")
    if options.write and options.cases:
        parser.error("--write needs all cases.")
    if options.write and options.runs < FEWEST_RUNS:
        parser.error(f"--write needs {FEWEST_RUNS} runs or more.")
    return options


def main():
    options = arguments()
    if options.record:
        instructions.record()
        return 0
    if options.check:
        return 0 if instructions.check() else 1
    cases = [case for case in CASES if not options.cases or case.name in options.cases]
    about = machine(options.runs)  # ahead of the runs, which take long
    runs = measure(cases, options.runs)
    lines, met = table(cases, runs)
    print("\n".join([about, ""] + lines))
    if options.write:
        write(lines, about)
    return 0 if met else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        sys.exit(f"bench: {failure}")
