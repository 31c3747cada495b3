#!/usr/bin/env python3
"""Measures the engine and zorbi2 and prints tables; scripts/bench builds what it needs.

Usage: bench.py BUILD [counts] [--renew]

BUILD is a build folder of the preset "bench". Counts of instructions, allocations and bytes are
compared with bench/counts.txt: 2 % more or less, and the exit status is 1. --renew writes that file
instead. Times are printed and judged by nobody; "counts" leaves them out.
"""

import argparse
import contextlib
import json
import os
import re
import resource
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

COMMITTED = Path(__file__).with_name("counts.txt")
SLACK = 0.02
COLUMNS = ("instructions", "allocations", "bytes")

# ---- Counts -------------------------------------------------------------------------------------


def count(program):
    """Operation -> its instructions, allocations and bytes."""
    with tempfile.TemporaryDirectory() as folder:
        out = Path(folder) / "counts"
        # The length of the folder's name counts, so it is the same everywhere.
        run = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", program], check=True,
            cwd=folder, env=os.environ | {"TMPDIR": "/tmp"}, capture_output=True, text=True)
        instructions = {}
        for file in Path(folder).glob("counts.*"):
            text = file.read_text()
            operation = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.M)
            if operation:
                instructions[operation[1]] = int(re.search(r"^summary: (\d+)$", text, re.M)[1])
    counts = {}
    for line in run.stdout.splitlines():
        operation, allocations, size = line.split("|")
        counts[operation] = (instructions[operation], int(allocations), int(size))
    return counts


def read_committed():
    rows = [line.split("|") for line in COMMITTED.read_text().splitlines()
            if not line.startswith("#")]
    return {row[0].strip(): tuple(int(cell) for cell in row[1:]) for row in rows}


def renew(counts):
    width = max(map(len, counts))
    lines = [f"# {'operation':{width - 2}} | {' | '.join(f'{name:>12}' for name in COLUMNS)}"]
    lines += [f"{operation:{width}} | {' | '.join(f'{value:12}' for value in row)}"
              for operation, row in counts.items()]
    COMMITTED.write_text("\n".join(lines) + "\n")


def compare(counts, committed):
    """Prints the counts and what is wrong with them; returns whether something is."""
    wrong = counts.keys() ^ committed.keys()
    for operation in sorted(wrong):
        print(f"{operation}: either not counted or not committed")
    print(f"{'':40}" + "".join(f"{name:>16}" for name in COLUMNS))
    for operation, row in counts.items():
        print(f"{operation:40}" + "".join(f"{value:16,}" for value in row))
        for name, value, expected in zip(COLUMNS, row, committed.get(operation, row)):
            if abs(value - expected) > SLACK * expected:
                wrong.add(operation)
                print(f"    {name}: {value:,} and not {expected:,} as in {COMMITTED.name}")
    print(f"{len(counts)} operations counted, {len(wrong)} not as committed")
    return bool(wrong)


# ---- Times of the engine ------------------------------------------------------------------------

# What is timed, and the file-system calls that it makes, timed alone.
BESIDE = {
    "CreateEngine/solid": "CreateEngineCalls/solid",
    "CreateEngine/shell": "CreateEngineCalls/shell",
    "WriteCMIFile": "WriteCMIFileCalls",
}


def time_engine(program, folder):
    """Medians of interleaved runs, in nanoseconds, with the project in the folder."""
    with tempfile.TemporaryDirectory(dir=folder) as temporary:
        run = subprocess.run(
            [program, "--benchmark_format=json", "--benchmark_enable_random_interleaving=true",
             "--benchmark_repetitions=15", "--benchmark_min_time=0.02",
             "--benchmark_report_aggregates_only=true"],
            check=True, cwd=temporary, env=os.environ | {"TMPDIR": temporary},
            capture_output=True, text=True)
    return {row["run_name"]: row["real_time"] for row in json.loads(run.stdout)["benchmarks"]
            if row["aggregate_name"] == "median"}


def print_engine_times(program, title, folder):
    times = time_engine(program, folder)
    print(f"\n{title}")
    for operation, calls in BESIDE.items():
        print(f"    {operation:24}{times[operation] / 1000:10.1f} us"
              f"{times[operation] / times[calls]:10.2f} times its system calls alone")
    print(f"    {'OfferItems':24}{times['OfferItems'] / 1000:10.2f} us")
    for engines in (1, 10, 100, 1000):
        made, ended = (times[f"Engines/{until}/{engines}/manual_time"] / engines / 1000
                       for until in ("made", "ended"))
        print(f"    {f'{engines} engines, each':24}{made:10.1f} us, {ended:.1f} with its end")


# ---- Times of zorbi2 ----------------------------------------------------------------------------

RECIPE = """[project]
name = "Cover"
run = {run}
folder = "Run{run:02}"
[target]
solver = "ANSYS"
mesh = "original"
"""


def make_recipes(folder, count):
    for run in range(count):
        run_folder = folder / f"Run{run:02}"
        run_folder.mkdir()
        (run_folder / f"Cover{run:02}.k5f").touch()
        (folder / f"{run}.toml").write_text(RECIPE.format(run=run))
    return [f"{run}.toml" for run in range(count)]


def seconds(command, folder):
    """Of a program whose temporary files are on the same file system, in a folder without others.
    What it prints goes nowhere, so that no reader is measured; problems are shown."""
    scratch = Path(folder) / "tmp"
    scratch.mkdir(exist_ok=True)
    nowhere = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)]
    with contextlib.chdir(folder):
        start = time.perf_counter()
        process = os.posix_spawn(command[0], command, os.environ | {"TMPDIR": str(scratch)},
                                 file_actions=nowhere)
        status = os.waitpid(process, 0)[1]
        elapsed = time.perf_counter() - start
    if status != 0:
        sys.exit(f"{command[0]}: status {status}")
    return elapsed


def print_one_recipe(build, folder):
    with tempfile.TemporaryDirectory(dir=folder) as temporary:
        recipes = make_recipes(Path(temporary), 1)
        commands = {"bare": [build / "bin/zorbi2_bare_write", "Cover00.cmi"],
                    "write": [build / "bin/zorbi2", "write", *recipes]}
        times = {name: [] for name in commands}
        for _ in range(100):
            for name, command in commands.items():
                times[name].append(seconds(command, temporary))
                (Path(temporary) / "Cover00.cmi").unlink()
    bare, write = (statistics.median(times[name]) for name in commands)
    print(f"    one recipe              {write * 1000:10.2f} ms"
          f"{write / bare:10.2f} times a bare program that writes one file")


def print_many_recipes(build, folder, count):
    with tempfile.TemporaryDirectory(dir=folder) as temporary:
        recipes = make_recipes(Path(temporary), count)
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        whole = seconds([build / "bin/zorbi2", "write", *recipes], temporary)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
    own = after.ru_utime - before.ru_utime
    print(f"    {count} recipes{'':12}{whole:10.2f} s "
          f"{whole / (whole - own):10.2f} times its system calls; {count / whole:,.0f} a second")


def print_host_times(build, title, folder):
    print(f"\nzorbi2 write, {title}")
    print_one_recipe(build, folder)
    print_many_recipes(build, folder, 5000)


# ---- The run ------------------------------------------------------------------------------------


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("build", type=Path)
    arguments.add_argument("what", nargs="?", choices=["counts"])
    arguments.add_argument("--renew", action="store_true", help="write the committed counts anew")
    wanted = arguments.parse_args()
    build = wanted.build.resolve()

    counts = count(build / "bin/zorbi2_counts")
    if wanted.renew:
        renew(counts)
    wrong = compare(counts, read_committed())
    if wanted.what is None:
        for title, folder in (("on disk", tempfile.gettempdir()), ("in memory", "/dev/shm")):
            print_engine_times(build / "bin/zorbi2_bench", title, folder)
            print_host_times(build, title, folder)
    return wrong


if __name__ == "__main__":
    sys.exit(main())
