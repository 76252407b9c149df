#include "batch/batch_run.h"
#include "batch/public_reader.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

FileNames names_of(const Files & files)
{
    FileNames names;
    for (const auto & file : files) names.insert(file.first);
    return names;
}

const std::filesystem::path tiles = std::filesystem::path(TEST_DATA_FOLDER "/../worked/tiles");

/// Creates the tiled inversion of a case beside a copy of its inputs, so that no script depends on where the tests lie.
BatchRun create_tiles(const TemporaryFolder & folder, const std::string & name, const std::string & definition,
                      const std::string & model, const std::string & more)
{
    const std::filesystem::path input = host_path(folder.file("input"));
    std::filesystem::copy(tiles / "input", input, std::filesystem::copy_options::recursive);
    std::vector<std::string> arguments = { "create",      (input / (definition + ".inp")).string(),
                                           "--output",    host_file(folder, name),
                                           "--base-mesh", (input / "base.msh").string() };
    if (!model.empty()) arguments.insert(arguments.end(), { "--base-model", (input / model).string() });
    for (const std::string & word : parts_of(more, ' '))
        if (!word.empty()) arguments.push_back(word);
    return run_batch(arguments);
}

}

TEST(worked, given_an_inversion_worked_by_hand_then_every_file_is_the_same_to_the_byte)
{
    for (const auto & [inversion, messages] : cases_of<2>("worked.cases")) {
        SCOPED_TRACE(inversion);
        const std::filesystem::path worked = std::filesystem::path(TEST_DATA_FOLDER "/../worked") / inversion;
        const TemporaryFolder folder;
        const BatchRun run =
            run_batch({ "create", (worked / "input" / "definition.inp").string(), "--output", host_file(folder, inversion) });
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, messages);
        const FileNames expected = files_of(worked / "expected");
        ASSERT_FALSE(expected.empty());
        EXPECT_EQ(files_of(host_path(folder.file(inversion))), expected);
        for (const std::string & name : expected)
            EXPECT_EQ(folder.read(inversion + "\\" + name), bytes_of(worked / "expected" / name)) << name;
    }
}

TEST(worked, given_a_tiled_inversion_worked_by_hand_then_every_file_is_the_same_to_the_byte)
{
    for (const auto & [inversion, definition, model, current, more, messages, compared] : cases_of<7>("worked_tiles.cases")) {
        SCOPED_TRACE(inversion);
        const TemporaryFolder folder;
        const BatchRun run = create_tiles(folder, inversion, definition, model, more);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, messages);
        Files expected = tree_of(tiles / inversion);
        expected[inversion + ".inp"] = expected.at("inversion.inp");
        if (!current.empty()) expected[current] = expected.at("refined" + current.substr(current.rfind('.')));
        ASSERT_TRUE(folder.has(inversion));
        const Files written = tree_of(host_path(folder.file(inversion)));
        if (compared == "all") {
            EXPECT_EQ(names_of(written), names_of(expected));
        }
        for (const auto & [name, bytes] : expected) {
            const auto file = written.find(name);
            EXPECT_EQ(file == written.end() ? "no file" : file->second, bytes) << name;
        }
    }
}

TEST(worked, given_each_tile_order_then_both_top_scripts_walk_the_tiles_in_it)
{
    for (const std::string order : { "000", "001", "010", "011", "100", "101", "110", "111" }) {
        SCOPED_TRACE(order);
        const TemporaryFolder folder;
        const std::string value = order.substr(0, 1) + "," + order.substr(1, 1) + "," + order.substr(2, 1);
        EXPECT_EQ(create_tiles(folder, "v3", "v3", "base.sus", "--skip-tile 02,03 --tile-order " + value).status, 0);
        for (const std::string script : { "iter_all", "insert_all" })
            EXPECT_EQ(folder.read("v3\\" + script + ".bat"), bytes_of(tiles / "orders" / (script + "_" + order + ".bat")))
                << script;
    }
}

TEST(worked, given_the_matrix_of_the_coarse_run_beside_its_model_then_the_tiles_name_it_unasked)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(host_path(folder.file("input")));
    folder.write("input\\QVinv3D_Tx.mtx", "");
    const BatchRun run = create_tiles(folder, "own_matrix", "own", "base.sus", "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "message: The mesh/model files have been loaded and refinement mode is enabled\n"
                          "message: Output complete\n");
    EXPECT_EQ(folder.read("own_matrix\\tile0101.bat"), bytes_of(tiles / "own_matrix" / "tile0101.bat"));
}

TEST(worked, given_an_inversion_folder_then_a_reader_of_the_public_formats_finds_every_datum_in_the_mesh_and_above_ground)
{
    namespace format = public_format;
    for (const auto & [definition, readings, model, components, above] : cases_of<5>("surveys.cases")) {
        SCOPED_TRACE(definition);
        const TemporaryFolder folder;
        const std::string path = TEST_DATA_FOLDER "/" + definition;
        ASSERT_EQ(run_batch({ "create", path, "--output", host_file(folder, "out") }).status, 0);
        const format::Mesh mesh = format::read_mesh(folder.read("out\\mesh"));
        EXPECT_EQ(format::read_model(folder.read("out\\" + model)).size(), mesh.cells());
        const std::vector<format::Datum> data = format::read_observations(folder.read("out\\" + readings));
        EXPECT_FALSE(data.empty());
        EXPECT_EQ(folder.has("out\\topo.dat"), above != "top");
        const std::size_t columns = mesh.count(0), rows = mesh.count(1);
        const std::vector<double> ground =
            above == "top" ? std::vector<double>(columns * rows, mesh.edges[2][0])
                           : format::read_ground(folder.read("out\\topo.dat"), mesh, above == "terrain" ? 3 : 2);
        for (const format::Datum & datum : data) {
            SCOPED_TRACE(std::to_string(datum.x) + " " + std::to_string(datum.y));
            const std::size_t column = format::cell_at(mesh.edges[0], datum.x), row = format::cell_at(mesh.edges[1], datum.y);
            ASSERT_TRUE(column < columns && row < rows);
            EXPECT_GT(datum.z, ground[row * columns + column]);
            ASSERT_EQ(datum.values.size(), number_in<std::size_t>(components));
            for (std::size_t k = 0; k < datum.values.size(); ++k)
                EXPECT_TRUE(std::isnan(datum.values[k]) ? datum.errors[k] == 0 : datum.errors[k] > 0);
        }
    }
}
