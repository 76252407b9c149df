#include "mesh/tile_layout.h"

#include "support/numbers.h"
#include "support/pattern.h"

#include <algorithm>
#include <new>

namespace {

/// How far the first search for a number of tiles goes by itself.
constexpr std::int32_t search_limit = 512;

/// The core cells that each of `tiles` tiles takes for its own part.
std::int32_t cells_per_tile(std::int32_t cells, std::int32_t tiles) { return cells / tiles + (cells % tiles == 0 ? 0 : 1); }

/// The number of tiles of at most `size` cells, an overlap at either end included, that hold `cells` core cells.
std::int32_t tiles_along(std::int32_t cells, std::int32_t size, std::int32_t overlap)
{
    const std::int32_t both_overlaps = multiply_counts(2, overlap);
    const std::int32_t own_cells = add_counts(size, multiply_counts(-2, overlap));
    if (own_cells < 1) // not one cell of its own fits in, so that no number of tiles would do
        throw OverflowFault("Overflow: tiles of " + general_text(size) + " cells have no room for overlaps of " +
                            general_text(overlap) + " cells at both ends; enlarge the tile size or shrink the overlap");
    std::int32_t count = round_to_count(static_cast<double>(cells) / own_cells);
    const auto covered = [&] { return add_counts(multiply_counts(count, own_cells), both_overlaps); };
    while (count == 0 || (covered() < cells && count < search_limit)) ++count;
    while (add_counts(cells_per_tile(cells, count), both_overlaps) > size) ++count;
    return count;
}

/// One axis of a core that is cut into tiles.
struct TiledAxis {
    const List<double> & base_nodes;
    const List<double> & nodes;
    std::int32_t first, last; // first node and last cell of the core
    std::int32_t range;       // what is divided among the tiles
    std::int32_t tiles, size, overlap;
};

/// The design mesh's node at or next below the base mesh's node at or next below a node.
std::int32_t node_on_base(const TiledAxis & axis, std::int32_t node)
{
    const std::int32_t base_node = node_not_above(axis.base_nodes, axis.nodes[node]);
    return node_not_above(axis.nodes, axis.base_nodes[base_node]);
}

/// Where the own part of tile k ends.
std::int32_t own_end_of(const TiledAxis & axis, std::int32_t k)
{
    const std::int32_t end = round_to_count(static_cast<double>(k) * axis.range / axis.tiles + axis.first);
    return end <= axis.last && k != axis.tiles ? node_on_base(axis, end) : axis.last;
}

List<TileBounds> bounds_along(const TiledAxis & axis)
{
    List<TileBounds> all(axis.tiles);
    std::int32_t own_first = axis.first;
    for (std::int32_t k = 1; k <= axis.tiles; ++k) {
        TileBounds & tile = all[k];
        tile.own_first = own_first;
        tile.own_end = own_first = own_end_of(axis, k);
        tile.first = std::max(k == 1 ? tile.own_first : add_counts(tile.own_first, -axis.overlap), 1);
        tile.end = k == axis.tiles ? tile.own_end : add_counts(tile.own_end, axis.overlap);
        // The next tile's own part starts where this one's ended before it was cut: a gap may open between the two.
        if (const std::int32_t excess = tile.end - tile.first - 1 - axis.size; excess > 0) {
            tile.own_end -= excess;
            tile.end -= excess;
        }
        tile.end = std::min(tile.end, axis.nodes.size());
    }
    return all;
}

}

void determine_number_of_tiles(const InversionDefinition & definition, TileLayout & layout)
{
    const auto & cells = definition.mesh_cells;
    if (std::min({ definition.tile_x_size, definition.tile_y_size, cells[0], cells[1] }) < 1) return;
    const std::int32_t x_tiles = tiles_along(cells[0], definition.tile_x_size, definition.tile_overlap);
    layout.number_y_tiles = tiles_along(cells[1], definition.tile_y_size, definition.tile_overlap);
    layout.number_x_tiles = x_tiles;
}

void determine_tile_bounds(const InversionDefinition & definition, const UbcMesh & base, const UbcMesh & mesh,
                           std::int32_t last_x, std::int32_t last_y, TileLayout & layout)
{
    // The y axis is divided as if it were one cell longer. The programs downstream know tiles so.
    const TiledAxis x{ base.nodes_x,          mesh.nodes_x,           mesh.core_x_first,      last_x, last_x - mesh.core_x_first,
                       layout.number_x_tiles, definition.tile_x_size, definition.tile_overlap };
    const TiledAxis y{
        base.nodes_y,          mesh.nodes_y,           mesh.core_y_first,      last_y, last_y + 1 - mesh.core_y_first,
        layout.number_y_tiles, definition.tile_y_size, definition.tile_overlap
    };
    try {
        layout.tile_x_cells = bounds_along(x);
        layout.tile_y_cells = bounds_along(y);
        layout.tile_skipped.assign(std::int64_t{ layout.number_x_tiles } * layout.number_y_tiles);
    } catch (const std::bad_alloc &) {
        throw Fault("There is not enough memory for the tiles");
    }
    layout.tile_order = {};
}

std::string tile_number(Tile tile) { return format_number(tile.x, "00") + format_number(tile.y, "00"); }

std::string tile_name(Tile tile) { return "tile" + tile_number(tile); }

std::vector<Tile> all_tiles(const TileLayout & layout)
{
    std::vector<Tile> tiles;
    for (std::int32_t x = 1; x <= layout.number_x_tiles; ++x)
        for (std::int32_t y = 1; y <= layout.number_y_tiles; ++y) tiles.push_back({ x, y });
    return tiles;
}

std::vector<std::vector<Tile>> tiles_in_run_order(const TileLayout & layout)
{
    const bool by_row = layout.tile_order[0] == 1;
    const auto place = [](std::int32_t counter, std::int32_t count, bool from_end) {
        return from_end ? count + 1 - counter : counter;
    };
    const std::int32_t columns = layout.number_x_tiles, rows = layout.number_y_tiles;
    std::vector<std::vector<Tile>> groups;
    for (std::int32_t outer = 1; outer <= (by_row ? rows : columns); ++outer) {
        std::vector<Tile> & group = groups.emplace_back();
        for (std::int32_t inner = 1; inner <= (by_row ? columns : rows); ++inner)
            group.push_back({ place(by_row ? inner : outer, columns, layout.tile_order[2] == 1),
                              place(by_row ? outer : inner, rows, layout.tile_order[1] == 1) });
    }
    return groups;
}

std::string tile_line_prefix(const TileLayout & layout, Tile tile, std::int32_t reading_count, std::int32_t tile_min_points)
{
    return !layout.is_skipped(tile) && reading_count > tile_min_points ? "" : "rem ";
}
