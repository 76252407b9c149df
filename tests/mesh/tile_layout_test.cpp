#include "fakes/case_table.h"
#include "mesh/given_base.h"
#include "support/fault.h"

#include <algorithm>

namespace {

std::string written_bounds(const List<TileBounds> & all)
{
    std::string text;
    for (const TileBounds & tile : all.items())
        text += (text.empty() ? "" : ", ") + written(std::array{ tile.first, tile.own_first, tile.own_end, tile.end });
    return text;
}

}

TEST(number_of_tiles, given_core_cells_then_each_tile_holds_its_share_and_two_overlaps)
{
    for (const auto & fields : cases_of<4>("number_of_tiles.cases")) {
        std::array<std::int32_t, 4> numbers;
        std::ranges::transform(fields, numbers.begin(), number_in<std::int32_t>);
        const auto & [cells, size, overlap, tiles] = numbers;
        InversionDefinition definition;
        definition.mesh_cells = { 300, cells, 1, 0 };
        definition.tile_y_size = size;
        definition.tile_overlap = overlap;
        TileLayout layout;
        layout.number_x_tiles = layout.number_y_tiles = 7;
        const auto determine = [&] { determine_number_of_tiles(definition, layout); };
        if (tiles < 0)
            EXPECT_THROW(determine(), OverflowFault) << size;
        else
            determine();
        EXPECT_EQ(layout.number_y_tiles, tiles < 0 ? 7 : tiles) << cells;
        EXPECT_TRUE(tiles > 0 || layout.number_x_tiles == 7) << cells;
    }
}

TEST(tile_bounds, given_a_core_then_tiles_end_on_nodes_of_the_base_mesh)
{
    for (const auto & [base, core, size, overlap, x, y] : cases_of<6>("tile_layout.cases")) {
        SCOPED_TRACE(base + " " + core);
        const Tiled tiled(number_in(base), number_in(core), number_in(size), number_in(overlap));
        EXPECT_EQ(written_bounds(tiled.layout.tile_x_cells), x);
        EXPECT_EQ(written_bounds(tiled.layout.tile_y_cells), y);
    }
}

TEST(tile_bounds, given_any_sizes_then_own_parts_cover_each_core_cell_once_up_to_the_last_and_behind_a_tile_that_was_cut)
{
    for (const double base : { 1, 3, 7, 25 })
        for (const double core : { 525, 1050, 2100 })
            for (const std::int32_t size : { 50, 64, 128, 300 })
                for (const std::int32_t overlap : { 0, 7, 20 }) {
                    const Tiled tiled(base, core, size, overlap);
                    const std::int32_t last = 10 + static_cast<std::int32_t>(core); // the eleventh node is the first
                    const auto & bounds = tiled.layout.tile_y_cells;
                    std::int32_t expected = 11;
                    for (std::int32_t k = 1; k <= bounds.size(); ++k) {
                        const TileBounds & tile = bounds[k];
                        EXPECT_EQ(tile.own_first, expected);
                        EXPECT_LE(tile.end - tile.first - 1, size);
                        EXPECT_TRUE(k == 1 || k == bounds.size() || tile.end - tile.own_end == overlap);
                        const bool cut = tile.end - tile.first - 1 == size;
                        expected = k < bounds.size() ? bounds[k + 1].own_first : last;
                        EXPECT_TRUE(tile.own_end == expected || (cut && tile.own_end < expected)) << base << " " << k;
                    }
                }
}

TEST(tile_order, given_the_lists_then_tiles_run_by_column_or_row_from_either_end)
{
    TileLayout layout{ 2, 3, {}, {}, List<std::uint8_t>(6), {} };
    const auto run = [&layout](std::array<std::int32_t, 3> order) {
        layout.tile_order = order;
        std::string text;
        for (const auto & group : tiles_in_run_order(layout))
            for (const Tile tile : group) text += (tile == group[0] ? ", " : " ") + tile_number(tile);
        return text;
    };
    EXPECT_EQ(run({ 0, 0, 0 }), ", 0101 0102 0103, 0201 0202 0203");
    EXPECT_EQ(run({ 1, 0, 0 }), ", 0101 0201, 0102 0202, 0103 0203");
    EXPECT_EQ(run({ 0, 1, 0 }), ", 0103 0102 0101, 0203 0202 0201");
    EXPECT_EQ(run({ 1, 1, 1 }), ", 0203 0103, 0202 0102, 0201 0101");
    layout.tile_skipped[layout.number_of({ 1, 2 })] = 1;
    EXPECT_EQ(tile_line_prefix(layout, { 2, 1 }, 11, 10), "");
    EXPECT_EQ(tile_line_prefix(layout, { 2, 1 }, 10, 10), "rem ");
    EXPECT_EQ(tile_line_prefix(layout, { 1, 2 }, 11, 10), "rem ");
    EXPECT_EQ(tile_name({ 2, 103 }), "tile02103");
}
