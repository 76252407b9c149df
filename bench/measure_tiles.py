#!/usr/bin/env python3
"""Measures whole tiled creations: peak memory, and time until all is on the disk; beside it that of the folder's bytes alone.

    measure_tiles.py [--quick]

--quick: the small case only. Prints a line "NAME VALUE UNIT" for each measurement.
"""
import os
import shutil
import sys
import time

import make_tile_inputs
from measure_create import INPUTS, PROGRAM, run_once

BLOCK = 1 << 20

# name: readings, points of the ground, cells of the refined mesh, tiles; repetitions
CASES = {
    "small": (20_000, 20_000, (300, 300, 32), (3, 3), 3),
    "large": (100_000, 100_000, (1000, 1000, 64), (10, 10), 2),
}


def written_files(folder):
    """Every file in it: its path from there, and its size."""
    for place, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(place, name)
            yield os.path.relpath(path, folder), os.path.getsize(path)


def write_again(files, folder, text):
    """Writes files of such sizes from text that lies ready."""
    for name, size in files:
        path = os.path.join(folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb", buffering=0) as file:
            for start in range(0, size, BLOCK):
                file.write(text[:min(BLOCK, size - start)])


def until_on_disk(work, folder):
    """Seconds until the work has filled the folder and the disk has it all, and what the work returns."""
    shutil.rmtree(folder, ignore_errors=True)
    os.sync()
    started = time.perf_counter()
    result = work()
    os.sync()
    return time.perf_counter() - started, result


def measure(case, readings, points, cells, tiles, repetitions):
    folder = os.path.join(INPUTS, "tiles_" + case)
    definition, mesh, model = make_tile_inputs.make(folder, readings, points, cells, tiles)
    output, floor = os.path.join(folder, "out"), os.path.join(folder, "floor")
    command = [PROGRAM, "create", definition, "--base-mesh", mesh, "--base-model", model, "--output", output]
    ours, floors, memory = [], [], []
    for _ in range(repetitions):
        seconds, (_, peak) = until_on_disk(lambda: run_once(command, output), output)
        ours.append(seconds)
        memory.append(peak)
        files = list(written_files(output))
        with open(os.path.join(output, "refined.sus"), "rb") as file:
            text = memoryview(file.read(BLOCK).ljust(BLOCK))
        shutil.rmtree(output)
        floors.append(until_on_disk(lambda: write_again(files, floor, text), floor)[0])
        shutil.rmtree(floor)
    print(f"create_{case}", f"{min(ours):.4f} s")
    print(f"create_{case}_memory", f"{max(memory):.0f} MB")
    print(f"bytes_alone_{case}", f"{min(floors):.4f} s")
    print(f"written_{case}_size", f"{sum(size for _, size in files) / 1e6:.0f} MB", flush=True)


def main():
    for case, numbers in CASES.items():
        if case == "small" or "--quick" not in sys.argv[1:]:
            measure(case, *numbers)


if __name__ == "__main__":
    main()
