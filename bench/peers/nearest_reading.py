#!/usr/bin/env python3
"""The nearest of five million readings for each of a million cells, as one scripts it with numpy."""
import time

import numpy as np

READINGS, SIDE, CELL = 5_000_000, 1000, 25.0
LINES = 1000


def survey():
    """Flight lines, as bench/nearest_reading_bench.cpp has them: x, y, z and a value."""
    random = np.random.default_rng(11)
    number = np.arange(READINGS)
    per_line = READINGS // LINES
    width = SIDE * CELL
    x = (number // per_line + 0.5) / LINES * width + random.uniform(-5, 5, READINGS)
    y = number % per_line / per_line * width + random.uniform(-5, 5, READINGS)
    z = 150 + random.uniform(-20, 20, READINGS)
    value = random.uniform(-500, 500, READINGS).astype(np.float32)
    return np.clip(x, 0, width - 1), np.clip(y, 0, width - 1), z, value


def is_dummy(numbers):
    return (np.abs(numbers + 99999) <= 1) | (np.abs(numbers + 9999) <= 0.1) | (np.abs(numbers + 999) <= 0.01)


def cells_of(nodes, positions):
    """The cell of each position, and the positions with those on an edge moved into their cell."""
    cell = np.searchsorted(nodes, positions, side="right") - 1
    snap = np.float32(CELL / 100)
    positions = np.where(np.abs(positions - nodes[cell]) < snap, positions + snap, positions)
    return cell, np.where(np.abs(positions - nodes[cell + 1]) < snap, positions - snap, positions)


def accepted(x, y, z, value):
    """The readings that count, their cells and their distances to the centres."""
    nodes = CELL * np.arange(SIDE + 1)
    kept = (value > -1e30) & ~is_dummy(value) & ~is_dummy(z)
    kept &= (x >= nodes[0]) & (x < nodes[-1]) & (y >= nodes[0]) & (y < nodes[-1])
    x, y, z, value = x[kept], y[kept], z[kept], value[kept]
    column, x = cells_of(nodes, x)
    row, y = cells_of(nodes, y)
    distance = np.hypot(x - (column + 0.5) * CELL, y - (row + 0.5) * CELL).astype(np.float32)
    return (x, y, z, value), row * SIDE + column, distance


def take(fields, nearest, count):
    """What each cell holds, in single precision, and which cells hold something."""
    occupied = nearest < count
    return occupied, [np.where(occupied, field[np.minimum(nearest, count - 1)], 0).astype(np.float32) for field in fields]


def by_minimum(*points):
    """The least distance of each cell, then the first reading that has it."""
    fields, cell, distance = accepted(*points)
    least = np.full(SIDE * SIDE, np.inf, np.float32)
    np.minimum.at(least, cell, distance)
    candidates = np.flatnonzero(distance == least[cell])
    nearest = np.full(SIDE * SIDE, len(cell))
    np.minimum.at(nearest, cell[candidates], candidates)
    return take(fields, nearest, len(cell))


def by_sorting(*points):
    fields, cell, distance = accepted(*points)
    order = np.lexsort((distance, cell))
    sorted_cells = cell[order]
    first = np.r_[True, sorted_cells[1:] != sorted_cells[:-1]]
    nearest = np.full(SIDE * SIDE, len(cell))
    nearest[sorted_cells[first]] = order[first]
    return take(fields, nearest, len(cell))


def main():
    points = survey()
    results = []
    for name, work in (("numpy_minimum_at", by_minimum), ("numpy_lexsort", by_sorting)):
        times = []
        for _ in range(3):
            start = time.perf_counter()
            results.append(work(*points))
            times.append(time.perf_counter() - start)
        print(f"{name} {min(times):.4f} s")
    assert all(np.array_equal(a, b) for a, b in zip(results[0][1], results[-1][1]))


if __name__ == "__main__":
    main()
