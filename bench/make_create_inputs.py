#!/usr/bin/env python3
"""Makes the inputs of one whole creation: a definition, readings along flight lines and scattered points of the ground.

Always the same bytes for the same numbers. A folder that already holds them is left alone.
"""
import argparse
import os

import numpy as np
import pandas as pd

from measured_survey import CELL, SOUTH, WEST, write_definition

PADDING_XY, PADDING_Z = "1,1,1.25,1.5,2,3,4,6", "1,1,1,1,1.5,1.5,2,2,3,3,4,5,6,8,10,12"


def numbers(text):
    return [float(item) for item in text.split(",") if item]


def ground(x, y):
    """A hilly surface between about 200 and 400 m."""
    u, v = (x - WEST) / 1000, (y - SOUTH) / 1000
    return 300 + 45 * np.sin(u * 0.9) * np.cos(v * 0.7) + 30 * np.sin(u * 2.3 + v * 1.7) + 10 * np.cos(v * 5.1)


def write_untiled_definition(path, cells):
    """Writes it and gives the size of the core. A mesh too small for padding gets none."""
    padding_xy, padding_z = (PADDING_XY, PADDING_Z) if cells[0] >= 40 else ("", "")
    edge = 2 * len(numbers(padding_xy))
    core = cells[0] - edge, cells[1] - edge, cells[2] - len(numbers(padding_z))
    write_definition(path, core, padding_xy, padding_z, padded=padding_xy != "")
    return core[0] * CELL, core[1] * CELL


def write_readings(path, count, width, height, random):
    """Readings evenly along east-west lines, strayed by some metres."""
    lines = max(1, round(np.sqrt(count / 12)))
    per_line = -(-count // lines)
    line, along = np.divmod(np.arange(count), per_line)
    x = WEST + width * (along + 0.5) / per_line
    y = SOUTH + height * (line + 0.5) / lines + random.normal(0, 3, count)
    z = ground(x, y) + 80 + random.normal(0, 5, count)
    value = 100 + 400 * np.sin(x / 900) * np.cos(y / 1100) + random.normal(0, 2, count)
    table = pd.DataFrame({"line": 1000 + line, "x": x.round(1), "y": y.round(1), "z": z.round(1), "nt": value.round(2)})
    table.to_csv(path, index=False)


def write_ground(path, count, width, height, random):
    """Points scattered over the core and a margin around it, elevations in decimetres."""
    margin = 0.1
    x = WEST + width * random.uniform(-margin, 1 + margin, count)
    y = SOUTH + height * random.uniform(-margin, 1 + margin, count)
    pd.DataFrame({"x": x.round(1), "y": y.round(1), "z": ground(x, y).round(1)}).to_csv(path, sep=" ", index=False, header=False)


def make(folder, readings, points, cells):
    """Fills the folder and gives the path of the definition."""
    definition = os.path.join(folder, "survey.inp")
    if os.path.exists(definition):
        return definition
    os.makedirs(folder, exist_ok=True)
    random = np.random.Generator(np.random.PCG64(20240607))
    width, height = write_untiled_definition(definition + ".part", cells)
    write_readings(os.path.join(folder, "readings.csv"), readings, width, height, random)
    write_ground(os.path.join(folder, "ground.xyz"), points, width, height, random)
    os.rename(definition + ".part", definition)  # the last: it says that the folder is whole
    return definition


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder")
    parser.add_argument("--readings", type=int, default=1_000_000)
    parser.add_argument("--points", type=int, default=1_000_000, help="of the ground")
    parser.add_argument("--cells", type=int, nargs=3, default=(256, 256, 64), help="of the mesh, with padding")
    arguments = parser.parse_args()
    print(make(arguments.folder, arguments.readings, arguments.points, arguments.cells))


if __name__ == "__main__":
    main()
