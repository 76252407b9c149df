#!/usr/bin/env python3
"""Writing a model of 256 x 256 x 128 cells as text: numpy.savetxt, and blocks of numbers formatted by one % operation.

Both are measured on an eighth of the cells and the times multiplied by eight; they grow with the number of cells alone.
"""
import os
import tempfile
import time

import numpy as np

SHAPE = (256, 256, 128)  # x, y, z as in the file: z fastest
SHARE = 8
BLOCK = 200_000
NULL = -1e32


def inverted_model():
    """Values of five decades and either sign, and air in a twentieth of the cells."""
    random = np.random.default_rng(7)
    count = SHAPE[0] * SHAPE[1] * SHAPE[2] // SHARE
    values = (10.0 ** random.normal(-3, 1, count)).astype(np.float32)
    values[random.random(count) < 0.25] *= -1
    values[random.random(count) < 0.05] = NULL
    return values


def with_null_text(values):
    return np.where(values <= NULL, np.float32(-1), values)


def numpy_savetxt(path, values):
    np.savetxt(path, with_null_text(values), fmt=" %.5E", newline="\r\n")


def blocks(path, values):
    values = with_null_text(values).astype(np.float64)
    with open(path, "w", newline="", encoding="ascii") as file:
        for start in range(0, len(values), BLOCK):
            block = values[start : start + BLOCK].tolist()
            file.write((" %.5E\r\n" * len(block)) % tuple(block))


def main():
    values = inverted_model()
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "model.sus")
        for write in (numpy_savetxt, blocks):
            best = float("inf")
            for _ in range(3):
                start = time.perf_counter()
                write(path, values)
                best = min(best, time.perf_counter() - start)
            print(f"{write.__name__} {best * SHARE:.3f} s")


if __name__ == "__main__":
    main()
