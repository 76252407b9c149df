#!/usr/bin/env python3
"""Makes the inputs of one tiled creation: a base mesh, a model on it whose values all differ, and a definition that refines it.

The base cells are split in four along x and y. Always the same bytes for the same numbers. A folder that already holds them is
left alone.
"""
import argparse
import os

import numpy as np

from make_create_inputs import PADDING_XY, PADDING_Z, numbers, write_ground, write_readings
from measured_survey import CELL, CELL_Z, SOUTH, TILE_BLEND_Z, TILE_OVERLAP, TOP, WEST, write_definition

SPLIT = 4  # refined cells in a base cell, along x and y
VALUES_AT_ONCE = 200_000


def core_counts(cells):
    """Refined core cells along x, y and z of a refined mesh with so many cells."""
    edge = 2 * len(numbers(PADDING_XY))
    return cells[0] - edge, cells[1] - edge, cells[2] - len(numbers(PADDING_Z)) - TILE_BLEND_Z


def largest_tile(core, tiles):
    """The least tile size that gives so many tiles whatever their limits, which go down to base nodes."""
    return -(-core // tiles) + 2 * TILE_OVERLAP + SPLIT


def write_base_mesh(path, core):
    padding_xy, padding_z = numbers(PADDING_XY), numbers(PADDING_Z)
    width = SPLIT * CELL
    rows = [[p * width for p in padding_xy[::-1]] + [width] * (count // SPLIT) + [p * width for p in padding_xy]
            for count in core[:2]]
    rows.append([CELL_Z] * (core[2] + TILE_BLEND_Z) + [p * CELL_Z for p in padding_z])
    outside = sum(padding_xy) * width
    with open(path, "w", encoding="ascii", newline="\r\n") as file:
        print(*map(len, rows), file=file)
        print(WEST - outside, SOUTH - outside, TOP, file=file)
        for row in rows:
            print(*row, file=file)
    return [len(row) for row in rows]


def write_base_model(path, cells, random):
    """A smooth body with some noise, of both signs; one value per line, z fastest, then x, then y."""
    y, x, z = np.ogrid[:cells[1], :cells[0], :cells[2]]
    values = 0.02 * np.sin(x / 9.0) * np.cos(y / 7.0) * np.exp(-z / 20.0)
    values = (values + random.normal(0, 0.001, values.shape)).ravel()
    with open(path, "w", encoding="ascii", newline="") as file:
        for start in range(0, values.size, VALUES_AT_ONCE):
            block = values[start:start + VALUES_AT_ONCE].tolist()
            file.write(("%.7E\r\n" * len(block)) % tuple(block))


def make(folder, readings, points, cells, tiles):
    """Fills the folder; gives the paths of the definition, the base mesh and the base model."""
    definition, mesh, model = (os.path.join(folder, name) for name in ("survey.inp", "base.msh", "base.sus"))
    if not os.path.exists(definition):
        os.makedirs(folder, exist_ok=True)
        random = np.random.Generator(np.random.PCG64(20240607))
        core = core_counts(cells)
        write_base_model(model, write_base_mesh(mesh, core), random)
        width, height = core[0] * CELL, core[1] * CELL
        write_readings(os.path.join(folder, "readings.csv"), readings, width, height, random)
        write_ground(os.path.join(folder, "ground.xyz"), points, width, height, random)
        tile = [largest_tile(core[axis], tiles[axis]) for axis in range(2)]
        write_definition(definition, core, PADDING_XY, PADDING_Z, tile=tile)  # the last: it says that the folder is whole
    return definition, mesh, model


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder")
    parser.add_argument("--readings", type=int, default=100_000)
    parser.add_argument("--points", type=int, default=100_000, help="of the ground")
    parser.add_argument("--cells", type=int, nargs=3, default=(300, 300, 32), help="of the refined mesh")
    parser.add_argument("--tiles", type=int, nargs=2, default=(3, 3))
    arguments = parser.parse_args()
    print(*make(arguments.folder, arguments.readings, arguments.points, arguments.cells, arguments.tiles))


if __name__ == "__main__":
    main()
