#!/usr/bin/env python3
"""Makes the model files of the reference field out of the published table of coefficients.

usage: make_field_model.py TABLE FOLDER

Writes FOLDER/igrf14.wmm, a text that describes the model, and FOLDER/igrf14.wmm.cof, its coefficients in the binary form that
GeographicLib's MagneticModel reads: an identification of 8 characters, then a set for each epoch and one for the yearly change behind
the last. A set is its degree and order (32 bits each), the coefficients g of order 0, 1, ... with rising degree in each, and the
coefficients h likewise from order 1 on (64 bits each), all of it with the low byte first.
"""
import os
import struct
import sys

NAME = "igrf14"
IDENTIFICATION = b"IGRF14-A"
YEARS_BETWEEN = 5
DESCRIPTION = """WMMF-1
# Made by tools/make_field_model.py from the coefficients that IAGA published (CC BY 4.0).
Name            {name}
Description     IGRF-14
ReleaseDate     2024-12-01
Radius          6371200
NumModels       {count}
Epoch           {first:.0f}
DeltaEpoch      {step}
MinTime         {first:.0f}
MaxTime         {last:.0f}
MinHeight       -10000
MaxHeight       600000
Normalization   schmidt
ByteOrder       little
ID              {identification}
"""


def read_table(path):
    """The epochs, and for each column behind the order, the change last, a map of (letter, degree, order) to the coefficient."""
    epochs, columns = [], []
    with open(path, encoding="ascii") as table:
        for line in table:
            fields = line.split()
            if fields[0] == "g/h":
                epochs = [float(field) for field in fields[3:-1]]
                columns = [{} for _ in fields[3:]]
            elif fields[0] in ("g", "h"):
                if len(fields) != 3 + len(columns):
                    sys.exit(f"{path}: too many or too few columns: {line}")
                for column, value in zip(columns, fields[3:]):
                    column[fields[0], int(fields[1]), int(fields[2])] = float(value)
    if not epochs or epochs != [epochs[0] + YEARS_BETWEEN * i for i in range(len(epochs))]:
        sys.exit(f"{path}: the epochs are not {YEARS_BETWEEN} years apart")
    return epochs, columns


def degree_of(column):
    """The highest degree with a coefficient other than 0: the table pads the rest."""
    return max(degree for (_, degree, _), value in column.items() if value != 0)


def packed(column):
    degree = degree_of(column)
    g = [0.0 if n == 0 else column["g", n, m] for m in range(degree + 1) for n in range(m, degree + 1)]
    h = [column["h", n, m] for m in range(1, degree + 1) for n in range(m, degree + 1)]
    return struct.pack(f"<2i{len(g) + len(h)}d", degree, degree, *g, *h)


def main(table, folder):
    epochs, columns = read_table(table)
    os.makedirs(folder, exist_ok=True)
    description = os.path.join(folder, NAME + ".wmm")
    with open(description + ".cof", "wb") as file:
        file.write(IDENTIFICATION + b"".join(packed(column) for column in columns))
    with open(description, "w", encoding="ascii", newline="\n") as file:
        file.write(DESCRIPTION.format(name=NAME, count=len(epochs), first=epochs[0], last=epochs[-1] + YEARS_BETWEEN,
                                      step=YEARS_BETWEEN, identification=IDENTIFICATION.decode()))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
