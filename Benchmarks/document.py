# SPDX-License-Identifier: MIT
"""What is measured, as a document: the table from outside, the benchmarks of the rules and the drawing by the
number of applications, and the machine it was made on."""
import datetime
import json
import os
import pathlib
import platform
import shutil
import statistics
import subprocess
import tempfile

SIZES = ("300", "3000", "30000")
# What each benchmark's row is called; the others are for those who work on that part.
GROWING = {
    "AppSearchBenchmark": {
        "search/everyNameMatches": "search, every name matches", "search/twoWords": "search, two words",
        "search/rareMatch": "search, hardly a match"},
    "CatalogBenchmark": {
        "cache<Disk::cold>": "reading the cache file, cold disk", "cache<Disk::warm>": "reading the cache file",
        "walk<Disk::cold>": "walking the folders, cold disk", "walk<Disk::warm>": "walking the folders",
        "walkAgain": "walking them again", "oneChange": "one changed entry"},
    "RingBenchmark": {"composition": "composition of the ring", "compositionOfASearch": "composition of a search"},
}
DRAWING = {
    "wholeFrame": "a whole frame", "highlightStep": "a step of the highlight", "openingStep": "a step of the opening",
    "drawAhead": "what is drawn ahead while hidden"}
IN_MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def benchmark_times(build, program):
    """Milliseconds by the name of the benchmark; for those of all threads the processor's time."""
    answer = subprocess.run(
        [str(build / program), "--benchmark_format=json", "--benchmark_min_time=0.2"], capture_output=True, check=True,
        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
    times = {}
    for row in json.loads(answer.stdout)["benchmarks"]:
        kind = "cpu_time" if "process_time" in row["name"] else "real_time"
        name = row["name"].replace("/process_time", "")
        times[name] = row[kind] * IN_MILLISECONDS[row["time_unit"]]
    return times


def milliseconds(value):
    if value is None:
        return "–"
    return f"{value:.0f} ms" if value >= 100 else f"{value:.3g} ms"


def growth_table(build):
    lines = ["| what | 300 | 3,000 | 30,000 | from 3,000 to 30,000 |", "|---|--:|--:|--:|--:|"]
    for program, names in GROWING.items():
        times = benchmark_times(build, program)
        for name, title in names.items():
            row = [times.get(f"{name}/{size}") for size in SIZES]
            growth = f"× {row[2] / row[1]:.1f}" if row[1] and row[2] else ""
            lines.append(f"| {title} | {' | '.join(map(milliseconds, row))} | {growth} |")
    return lines


def drawing_table(build):
    times = benchmark_times(build, "RingBenchmark")
    lines = ["| what | scale 1 | scale 2 |", "|---|--:|--:|"]
    for name, title in DRAWING.items():
        lines.append(f"| {title} | {' | '.join(milliseconds(times.get(f'{name}/{scale}')) for scale in (1, 2))} |")
    return lines


def stripped_megabytes(program):
    with tempfile.TemporaryDirectory() as folder:
        copy = shutil.copy(program, folder)
        subprocess.run(["strip", copy], check=True)
        return pathlib.Path(copy).stat().st_size / 1e6


def machine():
    processor = next((line.split(":", 1)[1].strip() for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines()
                      if line.startswith("model name")), platform.machine())
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    return f"{processor}, {os.cpu_count()} cores, {system}, Linux {platform.release()}; Xvfb, drawn by the processor"


def write(path, build, rows, fixed_work):
    """Writes the document; `rows` are those of the table from outside, `fixed_work` how long the same arithmetic took
    at each of them, in milliseconds."""
    outside = ["| what | median | 95 % | aim | |", "|---|--:|--:|--:|---|"]
    outside += [f"| {' | '.join(row)} |" for row in rows[1:]]
    size = stripped_megabytes(build / "tavik-launcher")
    text = [
        "# Performance", "",
        "Written by `Benchmarks/measure --document docs/performance.md`, in one run on one machine. What is seen from",
        "outside is measured by keys and pixels, on virtual desktops with a window manager; “empty window” is the least",
        "that a toolkit window can do, in the same run. Other launchers that Debian ships stand beside ours.", "",
        f"Machine: {machine()}.  ", f"Date: {datetime.date.today():%Y-%m-%d}.  ",
        f"How even the machine was: the same arithmetic took {min(fixed_work):.1f} to {max(fixed_work):.1f} ms, by the "
        f"median {statistics.median(fixed_work):.1f} ms. A machine that does nothing else takes about the same each time.",
        "",
        "## From outside", "", *outside, "",
        f"The stripped program has {size:.1f} MB; the aim is 5 MB at most.", "",
        "## By the number of applications", "", *growth_table(build), "",
        "## Drawing the largest ring (550 points)", "",
        "Steps are processor time over all threads.", "", *drawing_table(build), ""]
    pathlib.Path(path).write_text("\n".join(text))
