#include "batch/batch_run.h"
#include "batch/public_reader.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct WorkedCase {
    std::string name; ///< of its folder under tests/worked, and of the inversion folder
    std::string messages;
};

const std::string complete = "message: Output complete\n";
const std::string few = "message: Warning: The number of inversion data defined is only ";

const WorkedCase worked_cases[] = {
    { "magnetic", complete },
    { "gravity", few + "6\n" + complete },
    { "own_solver", few + "7\n" + complete },
};

const std::string refined = "message: The mesh/model files have been loaded and refinement mode is enabled\n";
const std::string missing_matrix =
    "question: Warning: The tiling may not work correctly if the MTX file does not exist when the inversion "
    "is run. Continue setup? -> ";

struct TiledCase {
    std::string name;       ///< of its folder under tests/worked/tiles, and of the inversion folder
    std::string definition; ///< in the folder of inputs
    std::string model;      ///< base model there; none when empty
    std::string current;    ///< the file that is a copy of the refined model; none when empty
    std::vector<std::string> more;
    std::string messages;
    bool whole = true; ///< else only the files in the folder are compared
};

const TiledCase tiled_cases[] = {
    { "v3", "v3", "base.sus", "maginv3d.sus", { "--skip-tile", "02,03", "--tile-order", "1,1,1" }, refined + complete },
    { "gravity_v2",
      "gravity_v2",
      "base.den",
      "gzinv3d.den",
      { "--skip-tile", "01,02", "--tile-order", "0,1,0" },
      refined + complete },
    { "v4", "v4", "", "maginv3d.sus", { "--skip-tile", "02,03", "--tile-order", "0,0,1" }, refined + few + "6\n" + complete },
    { "v5", "v5", "base.sus", "maginv3d.sus", { "--skip-tile", "01,01", "--tile-order", "1,0,0" }, refined + complete },
    { "own",
      "own",
      "base.sus",
      "qvinv3d.sus",
      { "--skip-tile", "02,03", "--tile-order", "1,0,1", "--yes" },
      refined + missing_matrix + "Yes\n" + complete },
    { "own_stopped", "own", "base.sus", "", {}, refined + missing_matrix + "No\n" + complete },
    { "gravity_v5", "gravity_v5", "base.den", "", {}, refined + complete, false },
    { "own_gravity", "own_gravity", "base.den", "", { "--yes" }, refined + missing_matrix + "Yes\n" + complete, false },
};

FileNames names_of(const Files & files)
{
    FileNames names;
    for (const auto & file : files) names.insert(file.first);
    return names;
}

const std::filesystem::path tiles = std::filesystem::path(TEST_DATA_FOLDER "/../worked/tiles");

/// Creates the tiled inversion of a case beside a copy of its inputs, so that no script depends on where the tests lie.
BatchRun create_tiles(const TemporaryFolder & folder, const TiledCase & c)
{
    const std::filesystem::path input = host_path(folder.file("input"));
    std::filesystem::copy(tiles / "input", input, std::filesystem::copy_options::recursive);
    std::vector<std::string> arguments = { "create",      (input / (c.definition + ".inp")).string(),
                                           "--output",    host_file(folder, c.name),
                                           "--base-mesh", (input / "base.msh").string() };
    if (!c.model.empty()) arguments.insert(arguments.end(), { "--base-model", (input / c.model).string() });
    arguments.insert(arguments.end(), c.more.begin(), c.more.end());
    return run_batch(arguments);
}

}

TEST(worked, given_an_inversion_worked_by_hand_then_every_file_is_the_same_to_the_byte)
{
    for (const WorkedCase & c : worked_cases) {
        SCOPED_TRACE(c.name);
        const std::filesystem::path worked = std::filesystem::path(TEST_DATA_FOLDER "/../worked") / c.name;
        const TemporaryFolder folder;
        const BatchRun run =
            run_batch({ "create", (worked / "input" / "definition.inp").string(), "--output", host_file(folder, c.name) });
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, c.messages);
        const FileNames expected = files_of(worked / "expected");
        ASSERT_FALSE(expected.empty());
        EXPECT_EQ(files_of(host_path(folder.file(c.name))), expected);
        for (const std::string & name : expected)
            EXPECT_EQ(folder.read(c.name + "\\" + name), bytes_of(worked / "expected" / name)) << name;
    }
}

TEST(worked, given_a_tiled_inversion_worked_by_hand_then_every_file_is_the_same_to_the_byte)
{
    for (const TiledCase & c : tiled_cases) {
        SCOPED_TRACE(c.name);
        const TemporaryFolder folder;
        const BatchRun run = create_tiles(folder, c);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors, c.messages);
        Files expected = tree_of(tiles / c.name);
        expected[c.name + ".inp"] = expected.at("inversion.inp");
        if (!c.current.empty()) expected[c.current] = expected.at("refined" + c.current.substr(c.current.rfind('.')));
        ASSERT_TRUE(folder.has(c.name));
        const Files written = tree_of(host_path(folder.file(c.name)));
        if (c.whole) {
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
        const TiledCase c = { "v3", "v3", "base.sus", "", { "--skip-tile", "02,03", "--tile-order", value }, "" };
        EXPECT_EQ(create_tiles(folder, c).status, 0);
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
    const TiledCase c = { "own_matrix", "own", "base.sus", "", {}, refined + complete };
    const BatchRun run = create_tiles(folder, c);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, c.messages);
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
