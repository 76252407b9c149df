#!/usr/bin/env python3
"""Runs the batch program on surveys and meshes of the largest size it is meant for, and prints a table.

    measure_load.py PROGRAM MAKE_SURVEY FOLDER [CASE ...]

FOLDER takes the inputs, which stay for the next time, and the output, which does not. Exits 1 when a run failed or took more
memory than its points, cells and tiles justify.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

from measured_survey import CELL, TILE_BLEND_Z, TOP, write_definition

# readings, points of the ground, cells of the core along x, y and z, tiles along an edge
CASES = {
    "readings": (50_000_000, 5_000_000, (512, 512, 32), 0),
    "mesh": (1_000_000, 1_000_000, (1024, 1024, 128), 0),
    "tiles": (1_000_000, 1_000_000, (800, 800, 32), 21),
}
BYTES_PER_READING = 44  # x, y, z, values, line; what the choice of a reading per cell needs
BYTES_PER_POINT = 200  # a triangulation of the ground
BYTES_PER_CELL = 8
FIXED_BYTES = 256 << 20


def make_inputs(maker, folder, readings, points, core, tiles):
    definition = os.path.join(folder, "survey.inp")
    if os.path.exists(definition):
        return definition
    os.makedirs(folder, exist_ok=True)
    width, height = core[0] * CELL, core[1] * CELL
    command = [maker, folder, readings, points, width, height]
    if tiles:
        command += [core[0] // 4, core[1] // 4, core[2] + TILE_BLEND_Z, CELL * 4, TOP]
    subprocess.run([str(word) for word in command], check=True)
    tile = [core[0] // tiles + 24] * 2 if tiles else None
    write_definition(definition, core, "1,1", "1,1", line_column=1, tile=tile)
    return definition


def run(command):
    """Runs it; gives its status, its output and its peak memory in bytes, without and with the pages of mapped files."""
    peak = 0
    with tempfile.TemporaryFile("w+") as output:
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.STDOUT)
        ended = 0
        while not ended:
            try:
                with open(f"/proc/{process.pid}/status", encoding="ascii") as file:
                    found = re.search(r"RssAnon:\s+(\d+) kB", file.read())
                peak = max(peak, int(found[1]) * 1024 if found else 0)
            except OSError:
                pass
            time.sleep(0.05)
            ended, status, usage = os.wait4(process.pid, os.WNOHANG)
        process.returncode = os.waitstatus_to_exitcode(status)
        output.seek(0)
        return process.returncode, output.read(), peak, usage.ru_maxrss * 1024


def run_case(program, maker, folder, name):
    readings, points, core, tiles = CASES[name]
    place = os.path.join(folder, name)
    definition = make_inputs(maker, place, readings, points, core, tiles)
    output = os.path.join(place, "out")
    shutil.rmtree(output, ignore_errors=True)
    command = [program, "create", definition, "--output", output]
    if tiles:
        command += ["--base-mesh", os.path.join(place, "base.msh"), "--base-model", os.path.join(place, "base.sus")]
    started = time.perf_counter()
    status, text, peak, whole = run(command)
    seconds = time.perf_counter() - started
    size = sum(os.path.getsize(os.path.join(at, each)) for at, _, files in os.walk(output) for each in files)
    cells = core[0] * core[1] * core[2]
    allowed = FIXED_BYTES + readings * BYTES_PER_READING + points * BYTES_PER_POINT + cells * BYTES_PER_CELL
    made_tiles = len([each for each in os.listdir(output) if re.fullmatch(r"tile\d+", each)]) if os.path.isdir(output) else 0
    good = status == 0 and peak <= allowed
    print(f"{name:10} {readings:>11,} readings {points:>10,} points {cells:>12,} cells {made_tiles:>4} tiles  {seconds:7.1f} s  "
          f"{peak / 1e6:8,.0f} MB of at most {allowed / 1e6:,.0f} MB ({whole / 1e6:,.0f} MB with files mapped)  "
          f"{size / 1e6:8,.0f} MB written  {'good' if good else 'FAILED'}", flush=True)
    if not good:
        print(text[-2000:])
    shutil.rmtree(output, ignore_errors=True)
    return good


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    program, maker, folder, *names = sys.argv[1:]
    results = [run_case(program, maker, folder, name) for name in names or CASES]
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
