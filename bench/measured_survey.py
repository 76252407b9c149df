"""The definition of the surveys that are made to measure how long the program takes, and how much memory."""

WEST, SOUTH, TOP = 450000, 7550000, 425  # corner of the core, metres
CELL, CELL_Z = 50, 25  # edges of a cell, metres
TILE_OVERLAP, TILE_BLEND_Z = 10, 5  # cells

DEFINITION = """Version 3.0
Inversion method: 4
Inversion mode: 0
Refinement Mode: {refined} ! 0=simple, 1=refined
X Range: {west} {east} {cell} {core[0]}
Y Range: {south} {north} {cell} {core[1]}
Z Range: {bottom} {top} {cell_z} {core[2]} 1 0
Add mesh padding: {padded} 1
X/Y padding: {padding_xy}
Z padding: {padding_z}
Obs data types  : 1 -1 -1
Data file type: 0 ! 0=point, 1=grid
Obs data file  : readings.csv
Topo data file : ground.xyz
Obs data definitions: 2 1 1 {line_column} 2 3 4 5 0 0 0
Number of Obs data per cell: 1 0.0000
Obs data base value: 100.0000
Obs data scale value: 1.0000
Sensor height definitions: 1 0.00 0.00
Error percent and floor:  2  5
Topo data definitions: 1 0 1 1 2 3
Topo type: 0
Topo offset: 0.00
Topo shift option: 1
Mag field: -53.31 6.66 52055.00
X tile size: {tile[0]}
Y tile size: {tile[1]}
Tile overlap: {overlap}
Tile X/Y blend: 5
Tile Z blend: {blend_z}
Tile min points: 0
Tile use reference: 1
Tile coarse model: 2
[Comments]
Made for measuring
"""


def write_definition(path, core, padding_xy="", padding_z="", padded=False, line_column=0, tile=None):
    """Writes the definition for `core` cells along x, y and z; `padded` by the program itself; in tiles of `tile` cells, if any."""
    text = DEFINITION.format(
        refined=int(tile is not None), west=WEST, east=WEST + core[0] * CELL, south=SOUTH, north=SOUTH + core[1] * CELL, top=TOP,
        bottom=TOP - core[2] * CELL_Z, cell=CELL, cell_z=CELL_Z, core=core, padded=int(padded), padding_xy=padding_xy,
        padding_z=padding_z, line_column=line_column, tile=tile or (100, 100), overlap=TILE_OVERLAP, blend_z=TILE_BLEND_Z)
    with open(path, "w", encoding="ascii", newline="\r\n") as file:
        file.write(text)
