#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/base_mesh_writer.h"
#include "model/mesh_file.h"
#include "model/mesh_reader.h"

#include <gtest/gtest.h>

namespace {

UbcMesh mesh_in(const TemporaryFolder & folder, const std::string & text)
{
    RecordedHost host;
    BaseModel base;
    base.mesh_file = folder.write("read.msh", text);
    EXPECT_EQ(read_mesh_file(base, host.host), Status::good);
    return base.mesh;
}

std::string written(const UbcMesh & mesh, MeshPart part)
{
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    write_base_mesh(false, folder.file("mesh"), part, mesh, dialogs);
    const bool asks = part == MeshPart::all || part == MeshPart::core;
    EXPECT_EQ(dialogs.messages, std::vector<std::string>(asks ? 1 : 0, "Mesh output complete"));
    return folder.read("mesh");
}

}

TEST(write_base_mesh, given_a_part_then_its_cells_layers_and_surface)
{
    const TemporaryFolder folder;
    const std::string expected = TEST_DATA_FOLDER "/base_mesh/";
    const UbcMesh mesh = mesh_in(folder, bytes_of(expected + "given.msh"));
    for (const auto & [name, part] : { std::pair("all", MeshPart::all),
                                       { "core", MeshPart::core },           // without its padding, to which the air belongs
                                       { "reduced_x", MeshPart::reduced_x }, // cells around the inner nodes of an axis
                                       { "reduced_y", MeshPart::reduced_y },
                                       { "reduced_z", MeshPart::reduced_z } })
        EXPECT_EQ(written(mesh, part), bytes_of(expected + name + ".msh")) << name;
}

TEST(write_base_mesh, given_a_drape_or_trapezoids_then_their_lines)
{
    const TemporaryFolder folder;
    const std::string head = "1 1 1\n0 0 0\n100\n2\n30\n";
    EXPECT_TRUE(written(mesh_in(folder, head + "Mesh format: 5\nMesh topo drape: 9.126 -1\n"), MeshPart::all)
                    .ends_with("  30.0000  \r\nMesh format: 5\r\nMesh topo drape: 9.13 -1.00\r\n"));
    EXPECT_TRUE(written(mesh_in(folder, head + "Trapezoidal nodes\n0 1 2 3 4 5 6 7\n"), MeshPart::reduced_x)
                    .ends_with(" 0  1  1 \r\n 50  0  0 \r\n  02.0000  \r\n  30.0000  \r\nMesh format: 4\r\nTrapezoidal nodes\r\n"
                               "1.00  2.00\r\n5.00  6.00\r\n"));
}

TEST(write_base_mesh, given_an_existing_file_then_it_is_replaced_after_a_question_or_quietly)
{
    const TemporaryFolder folder;
    const UbcMesh mesh = mesh_in(folder, "2 1 1\n0 0 0\n1 1\n1\n1\n");
    RecordedDialogs dialogs;
    const std::string path = folder.write("mesh", "old");
    write_base_mesh(false, path, MeshPart::core, mesh, dialogs);
    EXPECT_EQ(folder.read("mesh"), "old");
    EXPECT_EQ(dialogs.questions,
              std::vector<std::string>{ "The specified mesh file already exists. Overwrite the existing file?" });
    write_base_mesh(true, path, MeshPart::reduced_x, mesh, dialogs);
    EXPECT_EQ(folder.read("mesh").substr(0, 10), " 1  1  1 \r");
    EXPECT_EQ(dialogs.questions.size(), 1U);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST(write_base_mesh, given_a_mesh_of_a_file_then_what_both_writers_make_reads_back_the_same)
{
    const TemporaryFolder folder;
    const std::string widths = "107.4954 89.5795 74.6496 62.208 12*25 36 43.2 51.84 62.208 ";
    const UbcMesh mesh = mesh_in(folder, "20 20 4\n-1378.760463 39000 0.000000\n" + widths + "\n" + widths + "\n3*25 30 ");
    RecordedDialogs dialogs;
    write_mesh_file(folder.file("runs"), mesh, whole_mesh(mesh), false, {});
    write_base_mesh(true, folder.file("plain"), MeshPart::all, mesh, dialogs);
    for (const char * name : { "runs", "plain" }) {
        const UbcMesh again = mesh_in(folder, folder.read(name));
        EXPECT_EQ(again.nodes_x, mesh.nodes_x) << name;
        EXPECT_EQ(again.nodes_y, mesh.nodes_y) << name;
        EXPECT_EQ(again.nodes_z, mesh.nodes_z) << name;
    }
}
