#include "creation/given_creation.h"
#include "creation/solver_inputs.h"
#include "creation/tile_scripts.h"
#include "creation/top_scripts.h"

#include <gtest/gtest.h>
#include <map>

namespace {

constexpr std::int32_t first_cell = 3; // of the core

std::vector<std::int32_t> numbers_in(const std::string & text)
{
    std::istringstream words(text);
    return { std::istream_iterator<std::int32_t>(words), {} };
}

/// Nodes 10 m apart, from the first of `cells` in steps of `step`.
List<double> nodes(std::int32_t from, std::int32_t cells, std::int32_t step)
{
    List<double> nodes;
    for (std::int32_t i = from; i <= cells + 1; i += step) nodes.push_back(10.0 * i);
    return nodes;
}

/// A core with two cells round it, refined from a base mesh that ends just with the core's first cell.
struct GivenTiles : GivenCreation {
    BaseModel base;
    Refined refined{ base, {} };

    GivenTiles(const std::string & core, const std::string & base_cell, const std::string & size, const std::string & overlap)
        : GivenCreation("0", "1", "", "Tile X/Y blend: 1; Tile Z blend: 2; Tile coarse model: 2; Tile overlap: " + overlap)
    {
        const auto cells = numbers_in(core), widths = numbers_in(base_cell), sizes = numbers_in(size);
        definition.mesh_cells = { cells[0], cells[1], 6, 0 };
        definition.tile_x_size = sizes[0];
        definition.tile_y_size = sizes[1];
        mesh.total_cells = { cells[0] + 4, cells[1] + 4, 10 };
        mesh.nodes_x = nodes(1, mesh.cells_x(), 1);
        mesh.nodes_y = nodes(1, mesh.cells_y(), 1);
        mesh.core_x_first = mesh.core_y_first = first_cell;
        base.mesh.nodes_x = nodes(first_cell, mesh.cells_x(), widths[0]);
        base.mesh.nodes_y = nodes(first_cell, mesh.cells_y(), widths[1]);
        determine_number_of_tiles(definition, refined.tiles);
        determine_tile_bounds(definition, base.mesh, mesh, cells[0] + 2, cells[1] + 2, refined.tiles);
    }

    void write_scripts(const std::string & folder)
    {
        Creation creation = GivenCreation::creation(folder);
        creation.refined = &refined;
        write_sensitivity_inputs(creation);
        RecordedHost host;
        CoarseMatrix matrix;
        for (const Tile tile : all_tiles(refined.tiles)) write_tile_run_files(creation, tile, matrix, host.host);
        TopScripts scripts = start_top_scripts(creation);
        for (const auto & group : tiles_in_run_order(refined.tiles)) {
            for (const Tile tile : group) add_tile(scripts, creation, tile, 1);
            end_tile_group(scripts);
        }
        write_top_scripts(scripts, creation);
    }
};

/// The lines of a script that put tiles back, in order, each with its tile's name; those of the scripts it calls too.
std::vector<std::pair<std::string, std::string>> insertions_of(const TemporaryFolder & folder, const std::string & script)
{
    std::vector<std::pair<std::string, std::string>> insertions;
    std::istringstream lines(folder.read(script));
    std::string tile;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("cd tile")) tile = line.substr(3, line.find('\r') - 3);
        if (line.starts_with("DMXinsert ")) insertions.emplace_back(tile, line);
        if (line.starts_with("call "))
            for (const auto & insertion : insertions_of(folder, line.substr(5, line.find('\r') - 5)))
                insertions.push_back(insertion);
    }
    return insertions;
}

/// Stands in for the tool that puts tiles back: how often each cell of a layer is put in place.
std::map<std::pair<std::int32_t, std::int32_t>, int>
put_together(const std::vector<std::pair<std::string, std::string>> & insertions)
{
    std::map<std::pair<std::int32_t, std::int32_t>, int> times;
    for (const auto & [tile, line] : insertions) {
        constexpr std::string_view tool = R"(DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus )";
        EXPECT_TRUE(line.starts_with(tool)) << line;
        const auto range = numbers_in(line.substr(tool.size()));
        EXPECT_EQ(std::vector(range.begin() + 4, range.end()), (std::vector<std::int32_t>{ 1, 8, 1, 2 })) << line; // z, blends
        for (std::int32_t x = range[0]; x <= range[1]; ++x)
            for (std::int32_t y = range[2]; y <= range[3]; ++y) ++times[{ x, y }];
    }
    return times;
}

}

TEST(tile_scripts, given_any_order_then_each_core_cell_is_put_back_once_but_for_those_left_out)
{
    for (const auto & [name, core, base_cell, size, overlap, tiles, columns, rows] : cases_of<8>("tile_cover.cases")) {
        const auto cells = numbers_in(core), left_columns = numbers_in(columns), left_rows = numbers_in(rows);
        for (std::int32_t order = 0; order < 8; ++order) {
            SCOPED_TRACE(name + " order " + std::to_string(order));
            const TemporaryFolder folder;
            GivenTiles given(core, base_cell, size, overlap);
            given.refined.tiles.tile_order = { order / 4, order / 2 % 2, order % 2 };
            given.write_scripts(folder.path() + "\\");
            const auto insertions = insertions_of(folder, "insert_all.bat");
            EXPECT_EQ(insertions.size(), static_cast<std::size_t>(number_in(tiles)));
            EXPECT_EQ(insertions_of(folder, "iter_all.bat"), insertions);

            auto times = put_together(insertions);
            for (std::int32_t x = 1; x <= cells[0] + 4; ++x)
                for (std::int32_t y = 1; y <= cells[1] + 4; ++y) {
                    const bool in_core =
                        x >= first_cell && x < first_cell + cells[0] && y >= first_cell && y < first_cell + cells[1];
                    const bool left_out = std::ranges::count(left_columns, x) > 0 || std::ranges::count(left_rows, y) > 0;
                    EXPECT_EQ((times[{ x, y }]), in_core && !left_out ? 1 : 0) << x << " " << y;
                }
        }
    }
}
