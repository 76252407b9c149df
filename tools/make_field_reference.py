#!/usr/bin/env python3
"""Prints the cases of tests/utilities/reference_field.cases: the reference field worked out without the library that the program uses.

usage: make_field_reference.py TABLE

From the published coefficients straight to the field: geodetic to geocentric, Schmidt semi-normalised functions, the sums of the
series, and back to the horizon of the place. Angles change by the difference of the angles half a day before and after, with the
coefficients carried on in a straight line.
"""
import sys
from math import asin, atan2, cos, degrees, hypot, radians, sin, sqrt

MAJOR, FLATTENING, RADIUS = 6378.137, 1 / 298.257223563, 6371.2  # km
PLACES = [(-33.5, 151, 0), (65, -20, 0), (0, 0, 0), (-75, 110, 2500), (45, 180, 0), (30, -100, 600000), (-22, 140.5, 350)]
EDGES = [(1900, 90, 0, 0), (2025, 90, 0, 0), (2025, 90, 90, 0), (2025, -90, 0, 0), (2030, -90, -135, 2835), (2012.5, 51.5, 180, 0),
         (2012.5, 51.5, -180, 0), (2027.5, 0, 360, -10000),
         (1997.5, 60, -75, 600000), (1990.5, -22.0, 140.7, 300), (2029.997, 86.0, 139.5, 100000), (2003.504, -64.5, 137.5, 0)]


def read_table(path):
    rows, epochs = {}, []
    for fields in (line.split() for line in open(path, encoding="ascii")):
        if fields[0] == "g/h":
            epochs = [float(field) for field in fields[3:-1]]
        elif fields[0] in "gh":
            rows[fields[0], int(fields[1]), int(fields[2])] = [float(field) for field in fields[3:]]
    return epochs, rows


def coefficients(epochs, rows, date):
    """Of the date, and their yearly change; that of the years behind the date at an epoch."""
    i = max(k for k, epoch in enumerate(epochs) if epoch <= date)
    change = {k: row[-1] if i == len(epochs) - 1 else (row[i + 1] - row[i]) / 5 for k, row in rows.items()}
    return {k: row[i] + change[k] * (date - epochs[i]) for k, row in rows.items()}, change


def legendre(top, c, s):
    """Schmidt's functions of the colatitude with cosine c and sine s, and their derivatives."""
    p, d = {(0, 0): 1.0}, {(0, 0): 0.0}
    for m in range(top + 1):
        if m > 0:
            f = 1 if m == 1 else sqrt((2 * m - 1) / (2 * m))
            p[m, m] = f * s * p[m - 1, m - 1]
            d[m, m] = f * (s * d[m - 1, m - 1] + c * p[m - 1, m - 1])
        for n in range(m + 1, top + 1):
            a, b, q = 2 * n - 1, sqrt((n - 1) ** 2 - m * m) if n - 1 > m else 0, sqrt(n * n - m * m)
            p[n, m] = (a * c * p[n - 1, m] - b * p.get((n - 2, m), 0)) / q
            d[n, m] = (a * (c * d[n - 1, m] - s * p[n - 1, m]) - b * d.get((n - 2, m), 0)) / q
    return p, d


def vector(gauss, latitude, longitude, elevation):
    """North, east and down in nT."""
    phi, lam, h = radians(latitude), radians(longitude), elevation / 1000
    square = FLATTENING * (2 - FLATTENING)
    normal = MAJOR / sqrt(1 - square * sin(phi) ** 2)
    x, z = (normal + h) * cos(phi), (normal * (1 - square) + h) * sin(phi)
    r, c, s = hypot(x, z), z / hypot(x, z), x / hypot(x, z)
    p, d = legendre(13, c, s)
    north = east = down = 0
    for (letter, n, m), value in gauss.items():
        ratio, turn = (RADIUS / r) ** (n + 2), cos(m * lam) if letter == "g" else sin(m * lam)
        slope = -m * sin(m * lam) if letter == "g" else m * cos(m * lam)
        north += ratio * value * turn * d[n, m]
        east -= ratio * value * slope * p[n, m] / s
        down -= (n + 1) * ratio * value * turn * p[n, m]
    tilt = phi - asin(c)
    return north * cos(tilt) + down * sin(tilt), east, down * cos(tilt) - north * sin(tilt)


def elements(north, east, down):
    horizontal = hypot(north, east)
    return degrees(atan2(east, north)), degrees(atan2(down, horizontal)), hypot(horizontal, down)


def case(epochs, rows, date, *place):
    gauss, change = coefficients(epochs, rows, date)
    now, yearly, half_day = vector(gauss, *place), vector(change, *place), 0.5 / 365
    before, behind = (elements(*(v + step * w for v, w in zip(now, yearly))) for step in (-half_day, half_day))
    d, i, f = elements(*now)
    d_sv, i_sv, f_sv = (((b - a + 180) % 360 - 180) / (2 * half_day) for a, b in zip(before, behind))
    return " | ".join([f"{date:g}" if date == int(date) else str(date), *(f"{v:.10g}" for v in place), f"{d:.5f}", f"{i:.5f}",
                       f"{f:.3f}", f"{d_sv * 60:.4f}", f"{i_sv * 60:.4f}", f"{f_sv:.3f}"])


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    table = read_table(sys.argv[1])
    for k in range(27):
        print(case(*table, 1900 + 5 * k, *PLACES[k % len(PLACES)]))
    for edge in EDGES:
        print(case(*table, *edge))
