#include "batch/batch_run.h"
#include "batch/public_reader.h"

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

}

TEST(worked, given_an_inversion_worked_by_hand_then_every_file_is_the_same_to_the_byte)
{
    for (const WorkedCase & c : worked_cases) {
        SCOPED_TRACE(c.name);
        const std::filesystem::path worked = std::filesystem::path(WORKED_FOLDER) / c.name;
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

struct SurveyCase {
    std::string name;
    std::string definition; ///< host path
    std::string data, model;
    std::size_t components;
    bool has_topo;
    public_format::Ground ground;
};

TEST(worked, given_an_inversion_folder_then_a_reader_of_the_public_formats_finds_every_datum_in_the_mesh_and_above_ground)
{
    namespace format = public_format;
    using format::Ground;
    const std::string worked = WORKED_FOLDER;
    const std::string examples = EXAMPLES_FOLDER;
    const SurveyCase cases[] = {
        { "magnetic", worked + "/magnetic/input/definition.inp", "mag.obs", "model.sus", 1, true, Ground::terrain },
        { "gravity", worked + "/gravity/input/definition.inp", "grav.obs", "model.den", 1, false, Ground::mesh_surface },
        { "own_solver", worked + "/own_solver/input/definition.inp", "mag.obs", "model.sus", 2, true, Ground::terrain },
        { "osborne", examples + "/osborne/osborne.inp", "mag.obs", "model.sus", 1, true, Ground::terrain },
        { "wisconsin", examples + "/wisconsin/wisconsin.inp", "mag.obs", "model.sus", 1, true, Ground::terrain },
        // stations on the ground, whose cells are too wide to follow it
        { "bushveld", examples + "/bushveld/bushveld.inp", "grav.obs", "model.den", 1, true, Ground::mesh_surface },
    };
    for (const SurveyCase & c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryFolder folder;
        ASSERT_EQ(run_batch({ "create", c.definition, "--output", host_file(folder, c.name) }).status, 0);
        const auto file = [&](const std::string & name) { return folder.read(c.name + "\\" + name); };
        const format::Mesh mesh = format::read_mesh(file("mesh"));
        EXPECT_EQ(format::read_model(file(c.model)).size(), mesh.cells());
        const std::vector<format::Datum> data = format::read_observations(file(c.data));
        EXPECT_FALSE(data.empty());
        EXPECT_EQ(folder.has(c.name + "\\topo.dat"), c.has_topo);
        const std::size_t columns = mesh.x.size() - 1;
        const std::size_t rows = mesh.y.size() - 1;
        const std::vector<double> ground =
            c.has_topo ? format::read_ground(file("topo.dat"), mesh, c.ground) : std::vector<double>(columns * rows, mesh.z[0]);
        for (std::size_t i = 0; i < data.size(); ++i) {
            SCOPED_TRACE("datum " + std::to_string(i + 1));
            const std::size_t column = format::cell_at(mesh.x, data[i].x);
            const std::size_t row = format::cell_at(mesh.y, data[i].y);
            ASSERT_TRUE(column < columns && row < rows) << data[i].x << " " << data[i].y;
            EXPECT_GT(data[i].z, ground[row * columns + column]);
            ASSERT_EQ(data[i].values.size(), c.components);
            for (std::size_t k = 0; k < c.components; ++k)
                EXPECT_TRUE(std::isnan(data[i].values[k]) ? data[i].errors[k] == 0 : data[i].errors[k] > 0);
        }
    }
}
