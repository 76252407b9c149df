"""The peers of topography_bench: a million scattered points onto 512 x 512 cells, as an expert would script it.

Prints "name seconds" lines. Needs numpy, scipy and, for its line, gdal_grid. The time of gdal_grid includes reading its
points, which it takes from a text file.
"""
import os
import subprocess
import sys
import tempfile
import time

import numpy as np
from scipy.interpolate import LinearNDInterpolator

WEST, SOUTH, EXTENT, CELLS = 430000.0, 7200000.0, 12800.0, 512


def scattered_points(count):
    share = np.random.default_rng(7).random((count, 2)) * EXTENT
    z = 300 + 50 * np.sin(share[:, 0] / 900) * np.cos(share[:, 1] / 700)
    return share + (WEST, SOUTH), z


def scipy_seconds(points, z):
    middle = (np.arange(CELLS) + 0.5) * EXTENT / CELLS
    start = time.perf_counter()
    surface = LinearNDInterpolator(points, z)
    east, north = np.meshgrid(WEST + middle, SOUTH + middle)
    surface(east, north)
    return time.perf_counter() - start


VRT = """<OGRVRTDataSource><OGRVRTLayer name="points"><SrcDataSource relativeToVRT="1">points.csv</SrcDataSource>
<GeometryType>wkbPoint</GeometryType><GeometryField encoding="PointFromColumns" x="x" y="y" z="z"/>
</OGRVRTLayer></OGRVRTDataSource>"""


def gdal_seconds(points, z):
    with tempfile.TemporaryDirectory() as folder:
        np.savetxt(os.path.join(folder, "points.csv"), np.column_stack([points, z]), "%.3f", ",", header="x,y,z", comments="")
        with open(os.path.join(folder, "points.vrt"), "w", encoding="utf-8") as file:
            file.write(VRT)
        limits = [WEST, WEST + EXTENT], [SOUTH, SOUTH + EXTENT]
        command = ["gdal_grid", "-q", "-a", "linear", "-l", "points", "-ot", "Float32",
                   "-txe", *map(str, limits[0]), "-tye", *map(str, limits[1]), "-outsize", str(CELLS), str(CELLS),
                   os.path.join(folder, "points.vrt"), os.path.join(folder, "ground.tif")]
        start = time.perf_counter()
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        return time.perf_counter() - start


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
    points, z = scattered_points(count)
    print("topography_scipy", scipy_seconds(points, z), flush=True)
    print("topography_gdal_grid", gdal_seconds(points, z), flush=True)


if __name__ == "__main__":
    main()
