#!/usr/bin/env python3
"""A model of 256 x 256 x 64 cells taken over to 512 x 512 x 128 cells with scipy.ndimage.map_coordinates, order 3.

Without nulls it is one call. With nulls, which the spline cannot hold, they are 0 in it, and a second call takes the null cells over
(order 0).
"""
import time

import numpy as np
from scipy.ndimage import map_coordinates

BASE, TARGET = (64, 256, 256), (128, 512, 512)  # z, y, x
NULL = np.float32(-1e32)


def model():
    z, y, x = np.ogrid[: BASE[0], : BASE[1], : BASE[2]]
    return (np.sin(x / 5) * np.cos(y / 6) * np.sin(z / 4)).astype(np.float32)


def in_air_or_hole():
    z, y, x = np.ogrid[: BASE[0], : BASE[1], : BASE[2]]
    ground = 8 + 4 * np.sin(x / 19) * np.cos(y / 23) + 2 * np.sin((x + 2 * y) / 7)
    return (z < ground) | ((x % 64 < 3) & (y % 64 < 3) & (z % 32 < 3))


def centres():
    """The centres of the target, counted in cells of the base."""
    axes = [(np.arange(fine) + 0.5) * coarse / fine - 0.5 for coarse, fine in zip(BASE, TARGET)]
    return np.array(np.meshgrid(*axes, indexing="ij"))


def whole(values, positions):
    return map_coordinates(values, positions, order=3, mode="nearest", output=np.float32)


def with_nulls(values, positions):
    null = values == NULL
    result = map_coordinates(np.where(null, np.float32(0), values), positions, order=3, mode="nearest", output=np.float32)
    result[map_coordinates(null.astype(np.uint8), positions, order=0, mode="nearest") > 0] = NULL
    return result


def main():
    positions = centres()
    values = model()
    holed = np.where(in_air_or_hole(), NULL, values)
    for name, work, given in (("map_coordinates", whole, values), ("map_coordinates_nulls", with_nulls, holed)):
        best = float("inf")
        for _ in range(2):
            start = time.perf_counter()
            work(given, positions)
            best = min(best, time.perf_counter() - start)
        print(f"{name} {best:.3f} s")


if __name__ == "__main__":
    main()
