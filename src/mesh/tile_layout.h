#pragma once

#include "definition/definition.h"
#include "mesh/ubc_mesh.h"
#include "support/list.h"

#include <string>
#include <vector>

/// Where a tile lies along one axis, in node numbers of the design mesh.
struct TileBounds {
    std::int32_t first = 0;     ///< first node, with the overlap
    std::int32_t own_first = 0; ///< first node of the tile's own part
    std::int32_t own_end = 0;   ///< end node of its own part
    std::int32_t end = 0;       ///< end node, with the overlap

    bool operator==(const TileBounds &) const = default;
};

/// A tile by its column and row, both from 1.
struct Tile {
    std::int32_t x = 0, y = 0;

    bool operator==(const Tile &) const = default;
};

/// How the refined core is cut into overlapping tiles.
struct TileLayout {
    std::int32_t number_x_tiles = 0, number_y_tiles = 0;
    List<TileBounds> tile_x_cells, tile_y_cells; ///< one per column and per row of tiles; empty until the mesh is built
    List<std::uint8_t> tile_skipped;             ///< per tile, columns fastest; 1 when the user has removed it
    std::array<std::int32_t, 3> tile_order = {}; ///< by row, top to bottom, right to left: each 1 when so

    const TileBounds & x_of(Tile tile) const { return tile_x_cells[tile.x]; }
    const TileBounds & y_of(Tile tile) const { return tile_y_cells[tile.y]; }
    std::int64_t number_of(Tile tile) const { return (tile.y - std::int64_t{ 1 }) * number_x_tiles + tile.x; }
    bool is_skipped(Tile tile) const { return tile_skipped[number_of(tile)] != 0; }
    bool has(Tile tile) const { return tile.x >= 1 && tile.x <= number_x_tiles && tile.y >= 1 && tile.y <= number_y_tiles; }
};

/// Sets the numbers of tiles so that each holds its share of the core and its overlaps. Nothing changes when a size or a count
/// of core cells is below 1. A tile size of just two overlaps is an `OverflowFault`, with the counts as they were.
void determine_number_of_tiles(const InversionDefinition & definition, TileLayout & layout);

/// Sets the bounds of all tiles and takes back every skip and the order. last_x, last_y: the last cell of the core.
void determine_tile_bounds(const InversionDefinition & definition, const UbcMesh & base, const UbcMesh & mesh,
                           std::int32_t last_x, std::int32_t last_y, TileLayout & layout);

/// "tile0203": column 2, row 3.
std::string tile_name(Tile tile);
/// "0203", as in the name.
std::string tile_number(Tile tile);

/// All tiles, columns outermost: the order in which folders are written.
std::vector<Tile> all_tiles(const TileLayout & layout);
/// All tiles in the order in which they are run, in groups: one per column or per row.
std::vector<std::vector<Tile>> tiles_in_run_order(const TileLayout & layout);
/// "rem " before the script lines of a tile that is skipped or has no more than the least number of readings, otherwise nothing.
std::string tile_line_prefix(const TileLayout & layout, Tile tile, std::int32_t reading_count, std::int32_t tile_min_points);
