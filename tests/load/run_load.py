#!/usr/bin/env python3
"""Runs the batch program on surveys and meshes of the largest size it is meant for, and prints a table.

    run_load.py PROGRAM MAKE_SURVEY FOLDER [CASE ...]

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

CELL, TOP = 50, 425

DEFINITION = """Version 3.0
Inversion method: 4
Inversion mode: 0
Refinement Mode: {refined}
X Range: 450000.000000 {east:.7f} {cell:.7f} {core_x}
Y Range: 7550000.000000 {north:.7f} {cell:.7f} {core_y}
Z Range: {bottom:.6f} 425.0000000 25.0000000 {core_z} 1.0000000 0.0000000
Add mesh padding: 0 1
X/Y padding: 1,1
Z padding: 1,1
Obs data types  : 1 -1 -1
Data file type: 0 ! 0=point, 1=grid
Obs data file  : readings.csv
Topo data file : ground.xyz
Obs data definitions: 2 1 1 1 2 3 4 5 0 0 0
Number of Obs data per cell: 1 0.0000
Obs data base value: 100.0000
Obs data scale value: 1.0000
Sensor height definitions: 1 0.00 0.00
Error percent and floor:  2  5
Topo data definitions: 1 0 1 1 2 3
Topo type: 0
Topo offset: 0.00
Topo shift option: 1
Mag field: -53.31 6.66 52055.00
X tile size: {tile}
Y tile size: {tile}
Tile overlap: 10
Tile X/Y blend: 5
Tile Z blend: 5
Tile min points: 0
Tile use reference: 1
Tile coarse model: 2
[Comments]
Made for a load test
"""

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
        command += [core[0] // 4, core[1] // 4, core[2] + 5, CELL * 4, TOP]
    subprocess.run([str(word) for word in command], check=True)
    text = DEFINITION.format(refined=int(tiles > 0), east=450000 + width, north=7550000 + height, cell=CELL, core_x=core[0],
                             core_y=core[1], core_z=core[2], bottom=TOP - 25 * core[2],
                             tile=core[0] // tiles + 24 if tiles else 100)
    with open(definition, "w", encoding="ascii", newline="\r\n") as file:
        file.write(text)
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
