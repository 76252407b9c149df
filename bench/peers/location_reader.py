#!/usr/bin/env python3
"""Reads five of ten columns of the survey that bench/location_reader_bench.cpp leaves in the temporary folder.

    location_reader.py [FILE]
"""
import os
import sys
import tempfile
import time

import numpy as np
import pandas as pd

COLUMNS = [2, 3, 4, 6, 7]


def best_of(runs, work):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        rows = work()
        times.append(time.perf_counter() - start)
    return min(times), rows


def main():
    path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(tempfile.gettempdir(), "bench_locations.txt")
    peers = {
        "pandas": lambda: len(pd.read_csv(path, header=None, usecols=COLUMNS, engine="c")),
        "numpy_loadtxt": lambda: len(np.loadtxt(path, delimiter=",", usecols=COLUMNS)),
    }
    for name, work in peers.items():
        seconds, rows = best_of(2, work)
        print(f"{name} {seconds:.4f} s")
        print(f"    ({rows} rows)")


if __name__ == "__main__":
    main()
