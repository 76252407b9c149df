#!/usr/bin/env python3
"""Reads the model that bench/model_read_bench.cpp leaves in the temporary folder, into memory with x fastest.

    model_read.py [FILE]
"""
import os
import sys
import tempfile
import time

import numpy as np
import pandas as pd

SHAPE = (256, 256, 128)  # y, x, z as in the file: z fastest


def best_of(runs, work):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    return min(times)


def to_internal_units(values):
    """As a model in memory: z slowest, x fastest, a millionth of the unit, and null marked."""
    cells = np.ascontiguousarray(values.reshape(SHAPE).transpose(2, 0, 1))
    return np.where(cells <= -1, np.float32(-1e32), cells * np.float32(1e6))


def main():
    path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(tempfile.gettempdir(), "bench_model.sus")
    peers = {
        "numpy_loadtxt": lambda: to_internal_units(np.loadtxt(path, dtype=np.float32)),
        "pandas": lambda: to_internal_units(
            pd.read_csv(path, header=None, dtype=np.float32, skipinitialspace=True, engine="c")[0].to_numpy()
        ),
    }
    for name, work in peers.items():
        print(f"{name} {best_of(2, work):.4f} s")


if __name__ == "__main__":
    main()
