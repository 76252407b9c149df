#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/mesh_reader.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace {

template <class Number>
std::string words_of(const std::string & name, const List<Number> & numbers)
{
    std::string words = name;
    for (const Number number : numbers.items()) words += " " + general_text(number);
    return words;
}

/// All that a file brought, or what was said of it.
std::string outcome_of(const BaseModel & base, const RecordedDialogs & dialogs)
{
    const UbcMesh & mesh = base.mesh;
    std::string text;
    for (const std::string & message : dialogs.messages) text += message;
    if (const std::size_t path = text.find(base.mesh_file); path != text.npos) text.replace(path, base.mesh_file.size(), "FILE");
    if (!base.mesh_loaded) return text.empty() ? "nothing" : text;
    text += words_of(general_text(mesh.origin_x) + ":", mesh.widths_x) + ", ";
    text += words_of(general_text(mesh.origin_y) + ":", mesh.widths_y) + ", ";
    text += words_of(general_text(mesh.origin_z) + ":", mesh.widths_z) + ", format " + general_text(mesh.mesh_format);
    if (mesh.drape_depth != 0) text += words_of(", drape", List<float>{ mesh.drape_top, mesh.drape_bottom, mesh.drape_depth });
    if (mesh.air_cells != 0) text += ", air " + general_text(mesh.air_cells);
    if (mesh.sea_cells != 0) text += ", sea " + general_text(mesh.sea_cells);
    if (mesh.topo_present) text += words_of(", topo", mesh.topo_nodes);
    if (base.ground_bottom)
        text += ", bottom " + general_text(*base.ground_bottom) + ", level " + general_text(mesh.ground_level);
    if (mesh.trapezoid_present)
        text += words_of(", nodes", mesh.trapezoid_nodes) + ", turned " + general_text(mesh.trapezoid_rotation);
    return text;
}

}

TEST(read_mesh_file, given_a_file_then_its_mesh_or_one_message)
{
    const TemporaryFolder folder;
    BaseModel base; // nothing of a file may be left for the next
    for (const auto & [content, outcome] : cases_of<2>("mesh_reader.cases")) {
        SCOPED_TRACE(content);
        RecordedHost host;
        base.mesh_file = folder.write("mesh.msh", file_of(content));
        base.model.model_loaded = true;
        const Status status = read_mesh_file(base, host.host);
        EXPECT_EQ(status == Status::good, host.dialogs.messages.empty());
        EXPECT_EQ(outcome_of(base, host.dialogs).substr(0, outcome.size() + 1), outcome + (outcome.ends_with(" :") ? " " : ""));
        EXPECT_LE(host.dialogs.messages.size(), 1U);
        EXPECT_FALSE(base.model.model_loaded);
        EXPECT_EQ(base.mesh.earth_cells, base.mesh_loaded && base.mesh.mesh_format > 0
                                             ? base.mesh.cells_z() - base.mesh.air_cells - base.mesh.sea_cells
                                             : base.mesh.earth_cells);
    }
}

TEST(read_mesh_file, given_a_line_longer_than_lines_are_read_then_no_number_is_cut)
{
    const TemporaryFolder folder;
    std::string text = "3000 1 1\n0 0 0\n";
    for (int i = 1; i <= 3000; ++i) text += "1234.5 ";
    RecordedHost host;
    BaseModel base;
    base.mesh_file = folder.write("mesh.msh", text + "\n7\n8");
    EXPECT_EQ(read_mesh_file(base, host.host), Status::good);
    EXPECT_EQ(base.mesh.widths_x, List<double>(3000, 1234.5));
    EXPECT_EQ(base.mesh.widths_z, List<double>{ 8 });
}

TEST(read_mesh_file, given_no_name_or_no_file_then_nothing_is_loaded)
{
    RecordedHost host;
    BaseModel base;
    base.mesh_loaded = true;
    EXPECT_EQ(read_mesh_file(base, host.host), Status::good);
    EXPECT_FALSE(base.mesh_loaded);
    EXPECT_TRUE(host.dialogs.messages.empty());
    base.mesh_file = TemporaryFolder().file("gone.msh");
    EXPECT_EQ(read_mesh_file(base, host.host), Status::bad);
    EXPECT_EQ(host.dialogs.messages.at(0).rfind("An error occurred while reading the mesh file : \rcannot open", 0), 0U);
}

TEST(read_mesh_file, given_an_inversion_header_then_options_are_asked_for_and_its_first_cell_is_bad)
{
    struct Case {
        std::string text, pick;
        std::int32_t format, cells_y;
    };
    const Case cases[] = { { "title\n11\n\n6\nNonuniform grid\n", "0110", 3, 5 },
                           { "1 2\n11 x\n6\nTrapezoidal Grid used", "1001", 4, 10 },
                           { "1 2\n11\n6\n3\n4\n", "0000", 2, 5 } };
    const TemporaryFolder folder;
    for (const auto & [text, pick, format, cells_y] : cases) {
        RecordedHost host;
        BaseModel base;
        base.mesh_file = folder.write("file.inv", text);
        EXPECT_EQ(read_mesh_file(base, host.host), Status::bad); // cancelled
        host.dialogs.picks = { pick };
        EXPECT_EQ(read_mesh_file(base, host.host), Status::bad);
        EXPECT_EQ(host.dialogs.questions, std::vector<std::string>(2, "ResInv3D coordinate Option"));
        EXPECT_EQ(host.dialogs.messages,
                  (std::vector<std::string>{ "The inversion input has been cancelled", "Bad x cell 1 0.00" }));
        EXPECT_EQ(base.mesh.mesh_format, format);
        EXPECT_EQ(base.mesh.total_cells, (std::array<std::int32_t, 3>{ 0, cells_y, 10 }));
        EXPECT_FALSE(base.mesh_loaded);
    }
}

TEST(reset_model, given_a_type_then_its_scale_and_no_temporary_file)
{
    const TemporaryFolder folder;
    const std::string before = current_folder();
    change_to_path(folder.path());
    const std::tuple<std::int32_t, float, std::string> cases[] = { { 1, 1000000.0F, "SIx10^-6" },
                                                                   { 2, 100000.0F, "SIx10^-5" },
                                                                   { 3, 1000.0F, "SIx10^-3" } };
    for (const auto & [type, scale, units] : cases) {
        folder.write("~model.tmp", "");
        UbcModel model;
        model.model_type = type, model.model_loaded = true;
        reset_model(model);
        EXPECT_EQ(std::tuple(model.model_type, model.model_scale, model.model_units), std::tuple(type, scale, units));
        EXPECT_FALSE(model.model_loaded || folder.has("~model.tmp"));
    }
    change_to_path(before);
}
