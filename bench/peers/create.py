#!/usr/bin/env python3
"""The whole creation as an expert would script it: pandas reads, numpy selects, scipy triangulates, numbers go out in blocks.

    create.py DEFINITION FOLDER

Writes the large files of the folder: mesh, model.sus, mag.obs and topo.dat. It covers what bench/make_create_inputs.py makes
(comma data, own solver, magnetic), tests nothing and has no messages.
"""
import os
import sys

import numpy as np
import pandas as pd
from scipy.interpolate import LinearNDInterpolator

BLOCK = 200_000  # numbers formatted by one % operation


def read_definition(path):
    with open(path, encoding="ascii") as file:
        pairs = (line.split(":", 1) for line in file if ":" in line)
        return {label.strip(): value.strip() for label, value in pairs}


def numbers(text):
    return [float(item) for item in text.replace(",", " ").split()]


def make_nodes(settings):
    """Nodes of x and y ascending, of z from the top down."""
    padding = numbers(settings["X/Y padding"])
    nodes = []
    for label in ("X Range", "Y Range"):
        low, high, size, count = numbers(settings[label])[:4]
        widths = size * np.array(padding[::-1] + [1.0] * round(count) + padding)
        nodes.append(low - size * sum(padding) + np.concatenate(([0], np.cumsum(widths))))
    low, high, size, count = numbers(settings["Z Range"])[:4]
    widths = size * np.array([1.0] * round(count) + numbers(settings["Z padding"]))
    return nodes + [high - np.concatenate(([0], np.cumsum(widths)))]


def write_blocks(file, form, columns):
    """Lines of numbers by one form, thousands per % operation: what is quick in Python."""
    values = np.column_stack(columns)
    rows = max(1, BLOCK // values.shape[1])
    for start in range(0, len(values), rows):
        block = values[start:start + rows]
        file.write((form * len(block)) % tuple(block.ravel().tolist()))


def centres(nodes):
    return (nodes[:-1] + nodes[1:]) / 2


def select_readings(settings, folder, x_nodes, y_nodes):
    """Per surface cell the reading nearest its centre; the earlier one of equals."""
    columns = [int(number) for number in numbers(settings["Obs data definitions"])]
    wanted = [columns[4] - 1, columns[5] - 1, columns[6] - 1, columns[7] - 1]
    table = pd.read_csv(os.path.join(folder, settings["Obs data file"]), skiprows=columns[0] - 1, header=None, usecols=wanted,
                        dtype=np.float64, engine="c")[wanted].to_numpy()
    x, y, z, value = table.T
    edge = 4 if settings["Add mesh padding"].startswith("1") else 0  # outer cells that take no reading
    inside = ((x >= x_nodes[edge]) & (x < x_nodes[-1 - edge]) & (y >= y_nodes[edge]) & (y < y_nodes[-1 - edge]))
    x, y, z, value = x[inside], y[inside], z[inside], value[inside]
    ix = np.searchsorted(x_nodes, x, side="right") - 1
    iy = np.searchsorted(y_nodes, y, side="right") - 1
    distance = np.hypot(x - centres(x_nodes)[ix], y - centres(y_nodes)[iy]).astype(np.float32)
    cell = iy * (len(x_nodes) - 1) + ix
    nearest = np.full((len(x_nodes) - 1) * (len(y_nodes) - 1), np.inf, np.float32)
    np.minimum.at(nearest, cell, distance)
    at = np.flatnonzero(distance == nearest[cell])
    _, first = np.unique(cell[at], return_index=True)
    kept = at[first]
    value = (value[kept] - float(settings["Obs data base value"])) * float(settings["Obs data scale value"])
    return x[kept], y[kept], z[kept], value


def make_surface(settings, folder, x_nodes, y_nodes):
    """The triangulated ground, with a ring of points of mean elevation one cell outside the mesh."""
    points = pd.read_csv(os.path.join(folder, settings["Topo data file"]), sep=" ", header=None, dtype=np.float64,
                         engine="c").to_numpy()
    west, east = 2 * x_nodes[0] - x_nodes[1], 2 * x_nodes[-1] - x_nodes[-2]
    south, north = 2 * y_nodes[0] - y_nodes[1], 2 * y_nodes[-1] - y_nodes[-2]
    x, y, z = points.T
    points = points[(x >= west) & (x <= east) & (y >= south) & (y <= north)]
    ring_x = np.concatenate(([west], x_nodes, [east]))
    ring = np.concatenate([np.column_stack((ring_x, np.full(ring_x.size, edge))) for edge in (south, north)]
                          + [np.column_stack((np.full(y_nodes.size, edge), y_nodes)) for edge in (west, east)])
    places = np.concatenate((ring, points[:, :2]))
    heights = np.concatenate((np.full(len(ring), points[:, 2].mean()), points[:, 2]))
    corner = places.min(axis=0)  # large coordinates cost the triangulation its precision
    surface = LinearNDInterpolator(places - corner, heights)
    return lambda x, y: surface(*np.meshgrid(x - corner[0], y - corner[1]))


def run_lengths(widths):
    """Equal neighbours as "count*width"."""
    starts = np.flatnonzero(np.concatenate(([True], np.abs(np.diff(widths)) >= 0.001)))
    counts = np.diff(np.concatenate((starts, [len(widths)])))
    return " ".join(f"{widths[s]:.4f}" if n == 1 else f"{n}*{widths[s]:.4f}" for s, n in zip(starts, counts))


def write_mesh(path, nodes, node_ground):
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write(" ".join(str(len(axis) - 1) for axis in nodes) + "\r\n")
        file.write(" ".join(f" {axis[0]:.15g}" for axis in nodes) + "\r\n")
        for axis in nodes:
            file.write(run_lengths(np.abs(np.diff(axis))) + "\r\n")
        file.write("Mesh format: 5\r\nTopography (from lower-left by row)\r\n")
        write_blocks(file, "%.2f  " * node_ground.shape[1] + "\r\n", node_ground.T)


def write_observed(path, settings, readings):
    percent, floor = numbers(settings["Error percent and floor"])
    inclination, declination, intensity = numbers(settings["Mag field"])
    x, y, z, value = readings
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write(f"{inclination:.2f} {declination:.2f} {intensity:.2f}\r\n{inclination:.2f} {declination:.2f} 1\r\n")
        file.write(f" {len(x)} \r\n")
        write_blocks(file, "%14.4f" * 5 + "\r\n", (x, y, z, value, np.abs(value) * percent / 100 + floor))


def write_ground(path, x_nodes, y_nodes, node_ground, cell_ground):
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write(f" {node_ground.size + cell_ground.size} \r\n")
        for x, y, z in ((x_nodes, y_nodes, node_ground), (centres(x_nodes), centres(y_nodes), cell_ground)):
            east, north = np.meshgrid(x, y)
            write_blocks(file, "%14.4f" * 4 + "\r\n", (east.ravel(), north.ravel(), z.ravel(), z.ravel()))


def main():
    definition, output = sys.argv[1:3]
    settings = read_definition(definition)
    folder = os.path.dirname(os.path.abspath(definition))
    os.makedirs(output, exist_ok=True)
    x_nodes, y_nodes, z_nodes = make_nodes(settings)
    surface = make_surface(settings, folder, x_nodes, y_nodes)
    node_ground, cell_ground = surface(x_nodes, y_nodes), surface(centres(x_nodes), centres(y_nodes))
    write_mesh(os.path.join(output, "mesh"), (x_nodes, y_nodes, z_nodes), node_ground)
    model = np.zeros((len(x_nodes) - 1) * (len(y_nodes) - 1) * (len(z_nodes) - 1), np.float32)
    with open(os.path.join(output, "model.sus"), "w", encoding="ascii", newline="") as file:
        write_blocks(file, " %.5E\r\n", (model,))
    write_observed(os.path.join(output, "mag.obs"), settings, select_readings(settings, folder, x_nodes, y_nodes))
    write_ground(os.path.join(output, "topo.dat"), x_nodes, y_nodes, node_ground, cell_ground)


main()
