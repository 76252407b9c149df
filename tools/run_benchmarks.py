#!/usr/bin/env python3
"""Runs the programs of bench/ and the scripts beside them, one after the other, and writes docs/benchmarks.md.

With names of subjects only those are run, and the document is not written; nor is it with --quick, which leaves out the largest
cases.
"""
import glob
import json
import os
import platform
import re
import subprocess
import sys
from collections import namedtuple

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
PROGRAMS = "build/bench/bin"
DOCUMENT = "docs/benchmarks.md"
PYTHON = "/usr/bin/python3"
QUICK = "--quick"
# Subjects whose programs are measured as whole processes, each by a script of its own.
PROCESSES = {"create": "bench/measure_create.py", "tiles": "bench/measure_tiles.py"}
TAKES_QUICK = {"tiles"}
SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
RESULT_LINE = re.compile(r"^(\S+)[:=]?\s+([0-9.eE+-]+)\s*(ns|us|ms|s|MB)?$")

# What is promised. Measurements are named "subject/name". A ratio is `of` divided by `by`; `by` of None is an absolute value.
Aim = namedtuple("Aim", "work ratio of by limit at_least")


def at_least(work, ratio, of, by, limit):
    return Aim(work, ratio, of, by, limit, True)


def at_most(work, ratio, of, by, limit):
    return Aim(work, ratio, of, by, limit, False)


READ, NEAREST = "read 5 M rows of 10 columns, 5 wanted", "nearest reading per cell, 5 M readings, 1 M cells"
TOPOGRAPHY, MODEL = "1 M points of the ground onto 512 x 512 cells", "write a model of 8.4 M cells"
MODEL_READ = "read a model of 8.4 M cells"
WHOLE, TINY = "create, 1 M readings + 1 M points, 256 x 256 x 64", "create, 100 readings + 100 points, 10 x 10 x 10"
TILED = "create, 1000 x 1000 x 64 in 10 x 10 tiles, a base mesh of 262 x 262 x 64"
GRIDS = "readings of 1000 x 1000 cells from three grids of 20,000 x 20,000"
RESAMPLED, SPLINE = "a model of 256 x 256 x 64 cells onto 512 x 512 x 128", "interpolation/map_coordinates"
GROUND = "topography/topography/scattered/1000"
AIMS = [
    at_least(READ, "numpy.loadtxt / ours", "location_reader/numpy_loadtxt", "location_reader/ours", 2),
    at_least(READ, "pandas' C parser / ours", "location_reader/pandas", "location_reader/ours", 4.3),
    at_most(READ, "ours / mapped file and from_chars", "location_reader/ours", "location_reader/floor", 1.25),
    at_least(NEAREST, "numpy minimum.at / ours", "nearest_reading/numpy_minimum_at", "nearest_reading/ours", 10),
    at_most(NEAREST, "ours / one pass", "nearest_reading/ours", "nearest_reading/floor", 2),
    at_least(TOPOGRAPHY, "scipy / ours", "topography/topography_scipy", GROUND, 8.5),
    at_least(TOPOGRAPHY, "gdal_grid / ours", "topography/topography_gdal_grid", GROUND, 9),
    at_most(TOPOGRAPHY, "ours / CGAL alone", GROUND, "topography/cgal_alone/scattered/1000", 1.25),
    at_most(TOPOGRAPHY, "a lattice of points / scattered ones", "topography/topography/lattice/1000", GROUND, 1.35),
    at_least(GRIDS, "gdal_translate and numpy / ours", "grid/gdal_translate_numpy", "grid/ours", 1.5),
    at_most(GRIDS, "ours / from files a quarter of the size", "grid/ours", "grid/ours_quarter_of_the_file", 1.25),
    at_least(MODEL_READ, "numpy.loadtxt / ours", "model_read/numpy_loadtxt", "model_read/ours", 3.4),
    at_most(MODEL_READ, "ours / mapped file and from_chars", "model_read/ours", "model_read/floor", 1.3),
    at_least(MODEL, "numpy.savetxt / ours", "model_write/numpy_savetxt", "model_write/ours", 22),
    at_least(MODEL, "formatting in blocks / ours", "model_write/blocks", "model_write/ours", 6),
    at_most(MODEL, "ours / std::to_chars", "model_write/ours", "model_write/floor", 0.5),
    at_least(RESAMPLED, "scipy's map_coordinates / ours", SPLINE, "interpolation/ours", 20),
    at_least(RESAMPLED + ", air and holes", "scipy's map_coordinates without any / ours", SPLINE, "interpolation/ours_nulls", 6.5),
    at_least(RESAMPLED + ", air filled, holes", "scipy's map_coordinates without any / ours", SPLINE,
             "interpolation/ours_nulls_filled", 6.5),
    at_least(WHOLE, "a tuned script / ours", "create/script_whole", "create/create_whole", 8),
    at_most(WHOLE, "ours / its parts chained", "create/create_whole", "create/floor_parts_chained", 1.25),
    at_most(WHOLE, "peak memory, MB", "create/create_whole_memory", None, 400),
    at_least(TINY, "a tuned script / ours", "create/script_tiny", "create/create_tiny", 20),
    at_most(TINY, "seconds", "create/create_tiny", None, 0.020),
    at_most("create, growth per 4 x in points and cells", "whole / quarter", "create/create_whole", "create/create_quarter", 4.5),
    at_most("create, growth per 4 x in points and cells", "fourfold / whole", "create/create_fourfold", "create/create_whole",
            4.5),
    at_most(TILED, "ours / its bytes alone", "tiles/create_large", "tiles/bytes_alone_large", 2),
    at_most(TILED, "peak memory, MB", "tiles/create_large_memory", None, 400),
]


def parse_lines(text):
    """Results of a script: "NAME VALUE UNIT", in seconds or megabytes; other lines are talk."""
    results = {}
    for line in text.splitlines():
        match = RESULT_LINE.match(line.strip())
        if match:
            results[match[1].rstrip(":=")] = float(match[2]) * SECONDS.get(match[3] or "s", 1.0)
    return results


def parse_program(text):
    """Results of a Google Benchmark program: the best repetition of each benchmark."""
    results = {}
    for row in json.loads(text)["benchmarks"]:
        if row.get("run_type") != "iteration" or row.get("error_occurred"):
            continue
        name = re.sub(r"/(real_time|process_time|manual_time|iterations:\d+|repeats:\d+|threads:1)", "", row["name"])
        seconds = row["real_time"] * SECONDS[row["time_unit"]]
        results[name] = min(seconds, results.get(name, seconds))
    return results


def run(command, parse, faults):
    print(" ".join(command), flush=True)
    result = subprocess.run(command, capture_output=True, text=True)
    if result.returncode != 0:
        faults.append(f"{' '.join(command)} failed: {(result.stderr or result.stdout).strip()[-500:]}")
        return {}
    results = parse(result.stdout)
    for name, value in results.items():
        print(f"    {name}  {value:.4g}")
    if not results:
        faults.append(f"{' '.join(command)} measured nothing")
    return results


def subjects():
    programs = {os.path.basename(path).removesuffix("_bench") for path in glob.glob(f"{PROGRAMS}/*_bench")}
    return sorted(programs | {os.path.basename(path).removesuffix(".py") for path in glob.glob("bench/peers/*.py")} | set(PROCESSES))


def measure(subject, quick, faults):
    """All measurements of one subject, under "subject/name"."""
    if subject in PROCESSES:
        options = [QUICK] if quick and subject in TAKES_QUICK else []
        found = run([PYTHON, PROCESSES[subject], *options], parse_lines, faults)
        return {f"{subject}/{name}": value for name, value in found.items()}
    found = {}
    program = f"{PROGRAMS}/{subject}_bench"
    if os.path.exists(program):
        found.update(run([program, "--benchmark_format=json", "--benchmark_repetitions=3"], parse_program, faults))
    script = f"bench/peers/{subject}.py"
    if os.path.exists(script):
        found.update(run([PYTHON, script], parse_lines, faults))
    return {f"{subject}/{name}": value for name, value in found.items()}


def row_of(aim, measured):
    wanted = f"at least {aim.limit:g}" if aim.at_least else f"at most {aim.limit:g}"
    above, below = measured.get(aim.of), 1.0 if aim.by is None else measured.get(aim.by)
    if above is None or not below:
        return f"| {aim.work} | {aim.ratio} | not measured | {wanted} | |"
    value = above / below
    held = value >= aim.limit if aim.at_least else value <= aim.limit
    return f"| {aim.work} | {aim.ratio} | {value:.3g} | {wanted} | {'held' if held else '**missed**'} |"


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        models = [line.split(":", 1)[1].strip() for line in file if line.startswith("model name")]
    return f"{len(models)} cores of {models[0]}" if models else f"{os.cpu_count()} cores ({platform.machine()})"


def versions():
    code = "import numpy, scipy, pandas; print(f'numpy {numpy.__version__}, scipy {scipy.__version__}, pandas {pandas.__version__}')"
    python = subprocess.run([PYTHON, "-c", code], capture_output=True, text=True).stdout.strip()
    gdal = subprocess.run(["gdalinfo", "--version"], capture_output=True, text=True).stdout.split(",")[0]
    compiler = subprocess.run(["c++", "-dumpfullversion"], capture_output=True, text=True).stdout.strip()
    return f"{python}, {gdal}, GCC {compiler}"


def document(measured):
    lines = ["# Benchmarks", "",
             "Written by `./dev bench`; all of it measured in one run, on " + processor() + " with " + versions() + ".",
             "Each time is the best of its repetitions. What is measured and how: [bench/README.md](../bench/README.md).", "",
             "| work | ratio | measured | wanted | |", "|---|---|---|---|---|"]
    lines += [row_of(aim, measured) for aim in AIMS]
    lines += ["", "## Every measurement", "", "| subject | measurement | value |", "|---|---|---|"]
    for key, value in sorted(measured.items()):
        subject, name = key.split("/", 1)
        text = f"{value:.0f} MB" if name.endswith(("_memory", "_size")) else f"{value:.4g} s"
        lines.append(f"| {subject} | {name} | {text} |")
    return "\n".join(lines) + "\n"


def main():
    os.chdir(ROOT)
    named = [argument for argument in sys.argv[1:] if argument != QUICK]
    quick = QUICK in sys.argv[1:]
    faults, measured = [], {}
    for subject in named or subjects():
        measured.update(measure(subject, quick, faults))
    text = document(measured)
    if sys.argv[1:]:
        print(text)
    else:
        with open(DOCUMENT, "w", encoding="utf-8") as file:
            file.write(text)
        print(f"wrote {DOCUMENT}")
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
