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
