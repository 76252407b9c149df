#!/usr/bin/env python3
"""Three grids sampled at a million cell centres, as one scripts it with gdal_translate and numpy.

The grids are those that bench/grid_bench.cpp has made in the temporary folder.
"""
import os
import subprocess
import sys
import tempfile
import time

import numpy as np

GRIDS, SIDE, CELL, GRID_CELL = 3, 1000, 25.0, 10.0
WEST, NORTH = 480000.0, 7220000.0
SLOPE_X, SLOPE_Y = 0.0125, -0.03125


def cut(source, folder):
    """The part of a grid that the mesh and a cell around it cover, with the position of its first cell's centre."""
    target = os.path.join(folder, "part.img")
    limits = [WEST - CELL, NORTH + CELL, WEST + CELL * (SIDE + 1), NORTH - CELL * (SIDE + 1)]
    size = [round((limits[2] - limits[0]) / GRID_CELL), round((limits[1] - limits[3]) / GRID_CELL)]
    subprocess.run(["gdal_translate", "-q", "-of", "ENVI", "-projwin", *map(str, limits), source, target], check=True)
    west = 400000 + np.floor((limits[0] - 400000) / GRID_CELL + 0.001) * GRID_CELL
    north = 7300000 - np.floor((7300000 - limits[1]) / GRID_CELL + 0.001) * GRID_CELL
    cells = np.fromfile(target, np.float32)
    cells = cells.reshape(cells.size // size[0], size[0])
    return cells, west + GRID_CELL / 2, north - GRID_CELL / 2


def bilinear(cells, x, y):
    """At every crossing of the columns' and rows' distances from the first centre, in cells."""
    column, row = np.floor(x).astype(int), np.floor(y).astype(int)
    right, down = x - column, (y - row)[:, None]
    upper, lower = cells[row], cells[row + 1]
    above = upper[:, column] * (1 - right) + upper[:, column + 1] * right
    below = lower[:, column] * (1 - right) + lower[:, column + 1] * right
    missing = (upper[:, column] == -99999) | (lower[:, column] == -99999)
    missing |= (upper[:, column + 1] == -99999) | (lower[:, column + 1] == -99999)
    return np.where(missing, -1e32, above * (1 - down) + below * down)


def sample(sources, folder):
    x = WEST + CELL * (np.arange(SIDE) + 0.5)
    y = NORTH - CELL * SIDE + CELL * (np.arange(SIDE) + 0.5)
    values = []
    for source in sources:
        cells, first_x, first_y = cut(source, folder)
        values.append(bilinear(cells, (x - first_x) / GRID_CELL, (first_y - y) / GRID_CELL))
    occupied = values[0] > -1e30
    kept = [np.where(occupied, value, 0).astype(np.float32) for value in values]
    wanted = GRIDS - 1 + SLOPE_X * (x - WEST) + (SLOPE_Y * (y - NORTH))[:, None]
    assert np.abs(kept[-1] - wanted).mean() < 1e-3
    return kept


def main():
    sources = [os.path.join(tempfile.gettempdir(), "grid_bench", f"20000_{grid}.ers") for grid in range(GRIDS)]
    if not all(map(os.path.exists, sources)):
        sys.exit("the grids are not there: run grid_bench first")
    times = []
    with tempfile.TemporaryDirectory() as folder:
        for _ in range(3):
            start = time.perf_counter()
            sample(sources, folder)
            times.append(time.perf_counter() - start)
    print(f"gdal_translate_numpy {min(times):.4f} s")


if __name__ == "__main__":
    main()
