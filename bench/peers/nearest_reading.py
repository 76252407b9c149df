#!/usr/bin/env python3
"""The nearest of five million readings for each of a million cells, as one scripts it with numpy."""
import time

import numpy as np

READINGS, SIDE, CELL = 5_000_000, 1000, 25.0
LINES = 1000


def survey():
    """Flight lines, as bench/nearest_reading_bench.cpp has them."""
    random = np.random.default_rng(11)
    number = np.arange(READINGS)
    per_line = READINGS // LINES
    width = SIDE * CELL
    x = (number // per_line + 0.5) / LINES * width + random.uniform(-5, 5, READINGS)
    y = number % per_line / per_line * width + random.uniform(-5, 5, READINGS)
    return np.clip(x, 0, width - 1), np.clip(y, 0, width - 1)


def cells_and_distances(x, y):
    column, row = (x // CELL).astype(np.int64), (y // CELL).astype(np.int64)
    distance = np.hypot(x - (column + 0.5) * CELL, y - (row + 0.5) * CELL).astype(np.float32)
    return row * SIDE + column, distance


def by_minimum(x, y):
    """The least distance of each cell, then the first reading that has it."""
    cell, distance = cells_and_distances(x, y)
    least = np.full(SIDE * SIDE, np.inf, np.float32)
    np.minimum.at(least, cell, distance)
    candidates = np.flatnonzero(distance == least[cell])
    nearest = np.full(SIDE * SIDE, READINGS)
    np.minimum.at(nearest, cell[candidates], candidates)
    return nearest


def by_sorting(x, y):
    cell, distance = cells_and_distances(x, y)
    order = np.lexsort((distance, cell))
    sorted_cells = cell[order]
    first = np.r_[True, sorted_cells[1:] != sorted_cells[:-1]]
    nearest = np.full(SIDE * SIDE, READINGS)
    nearest[sorted_cells[first]] = order[first]
    return nearest


def main():
    x, y = survey()
    results = []
    for name, work in (("numpy_minimum_at", by_minimum), ("numpy_lexsort", by_sorting)):
        times = []
        for _ in range(3):
            start = time.perf_counter()
            results.append(work(x, y))
            times.append(time.perf_counter() - start)
        print(f"{name} {min(times):.4f} s")
    assert np.array_equal(results[0], results[-1])


if __name__ == "__main__":
    main()
