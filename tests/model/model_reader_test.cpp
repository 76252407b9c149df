#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "model/model_reader.h"
#include "model/model_values.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace {

/// Layers of 10 m under a top at 100 m.
UbcMesh mesh_of(std::array<std::int32_t, 3> cells)
{
    UbcMesh mesh;
    mesh.total_cells = cells;
    for (std::int32_t z = 0; z <= std::min(cells[2], 100); ++z) mesh.nodes_z.push_back(100 - 10 * z);
    return mesh;
}

std::string described(const List<float> & values)
{
    std::string text;
    for (const float value : values.items()) text += (text.empty() ? "" : " ") + general_text(value);
    return text;
}

/// What a small file is read as over two columns of two cells.
std::string read_as(const std::array<std::string, 5> & fields, const std::string & content)
{
    const TemporaryFolder folder;
    RecordedHost host;
    UbcMesh mesh = mesh_of({ 2, 1, 2 });
    const auto format = parts_of(fields[0], ' ');
    mesh.mesh_format = number_in(format[0]);
    mesh.air_cells = number_in(format[1]);
    mesh.sea_cells = number_in(format[2]);
    if (fields[2] != "-") host.dialogs.picks = { fields[2] };
    const List<float> before = { 5, 4 };
    List<float> values = before;
    const std::string path = folder.write("model", content);
    const Status status = read_model_values(path, number_in(fields[1]), -7, mesh, values, host.host);
    if (status == Status::good) return host.dialogs.messages.empty() ? described(values) : "a message";
    if (values != before) return "changed";
    std::string messages;
    for (std::string message : host.dialogs.messages) {
        if (const std::size_t at = message.find(path); at != message.npos) message.replace(at, path.size(), "PATH");
        messages += message;
    }
    return messages;
}

/// A base whose model file, over columns side by side, holds the values given.
struct ModelCase {
    explicit ModelCase(std::int32_t columns, std::int32_t layers, const std::string & content)
    {
        base.mesh_loaded = true;
        base.mesh = mesh_of({ columns, 1, layers });
        base.model_file = folder.write("model", content);
    }
    Status read(bool topo_file = false) { return read_model_file(base, topo_file, host.host); }

    TemporaryFolder folder;
    RecordedHost host;
    BaseModel base;
};

}

TEST(read_model_values, given_a_small_file_then_its_values_or_the_message)
{
    for (const auto & fields : cases_of<5>("model_reader.cases")) EXPECT_EQ(read_as(fields, fields[3]), fields[4]) << fields[3];
}

TEST(read_model_values, given_any_order_and_share_of_the_work_then_each_value_in_its_cell)
{
    constexpr int nx = 70, ny = 3, nz = 41;
    std::string content;
    for (int number = 1; number <= nx * ny * nz; ++number) content += std::to_string(number) + (number % 7 == 0 ? "\r\n" : " ,");
    const TemporaryFolder folder;
    const std::string path = folder.write("model", content);
    const UbcMesh mesh = mesh_of({ nx, ny, nz });
    // the number in the file of a cell, from its loops
    const auto number_of = [](std::int32_t order, int x, int y, int z) {
        if (order == 1) return ((y - 1) * nx + x - 1) * nz + z;
        if (order == 2) return ((z - 1) * ny + y - 1) * nx + x;
        if (order == 3) return ((z - 1) * nx + x - 1) * ny + ny + 1 - y;
        if (order == 4) return ((z - 1) * ny + ny - y) * nx + nx + 1 - x;
        return ((z - 1) * ny + ny - y) * nx + x;
    };
    for (std::int32_t order = 1; order <= 5; ++order)
        for (const ValueShares & shares : { ValueShares{}, ValueShares{ 1, 1 }, ValueShares{ 3, 2 }, ValueShares{ 999, 4 } }) {
            RecordedHost host;
            List<float> values;
            ASSERT_EQ(read_model_values(path, order, -1, mesh, values, host.host, shares), Status::good);
            for (int z = 1, i = 1; z <= nz; ++z)
                for (int y = 1; y <= ny; ++y)
                    for (int x = 1; x <= nx; ++x, ++i)
                        ASSERT_EQ(values[i], static_cast<float>(number_of(order, x, y, z))) << order << " " << x << " " << y;
            EXPECT_EQ(host.progress.percents.back(), 100);
        }
}

TEST(read_model_values, given_numbers_of_every_length_then_the_nearest_double_as_a_float)
{
    std::vector<std::string> numbers;
    for (const std::string digits : { "123456789012", "000000001002", "999999999999", "500000000000" })
        for (std::size_t whole = 0; whole <= 3; ++whole)
            for (std::size_t decimals = 1; decimals <= 9; ++decimals)
                for (const char * exponent : { "", "E+00", "e-03", "E+22", "E-31", "e5", "E-123", "E+007" })
                    for (const char * sign : { "", "-", "+" })
                        numbers.push_back(sign + digits.substr(0, whole) + "." + digits.substr(whole, decimals) + exponent);
    std::string content;
    for (const std::string & number : numbers) content += number + "\n";
    const TemporaryFolder folder;
    RecordedHost host;
    List<float> values;
    const UbcMesh mesh = mesh_of({ 1, 1, static_cast<std::int32_t>(numbers.size()) });
    ASSERT_EQ(read_model_values(folder.write("model", content), 1, -1, mesh, values, host.host), Status::good);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(values.items()[i], static_cast<float>(std::strtod(numbers[i].c_str(), nullptr))) << numbers[i];
}

TEST(read_model_values, given_a_huge_mesh_and_a_small_file_then_it_ends_at_once)
{
    constexpr std::int32_t most = 2147483647;
    for (const std::string content : { "1 2 3", "UBC\x01 1234" }) {
        ModelCase model(1, 1, content);
        model.base.mesh.total_cells = { most, most, most };
        EXPECT_EQ(model.read(), Status::bad);
        EXPECT_EQ(model.host.dialogs.messages,
                  std::vector<std::string>{ "Unexpected end of file was encountered while reading the model file" });
    }
}

TEST(read_model_file, given_kinds_and_null_limits_then_internal_units_range_and_sign)
{
    for (const auto & [type, scale, null, content, values, least, most, sign, pattern] : cases_of<9>("model_kinds.cases")) {
        SCOPED_TRACE(content);
        ModelCase model(2, 2, content);
        UbcModel & read = model.base.model;
        read.model_type = number_in(type);
        read.model_scale = number_in<float>(scale);
        read.model_null = number_in<float>(null);
        read.model_sign = 3;
        ASSERT_EQ(model.read(), Status::good);
        EXPECT_EQ(described(read.model_values), values);
        EXPECT_EQ(std::pair(read.model_min, read.model_max), std::pair(number_in<float>(least), number_in<float>(most)));
        EXPECT_EQ(read.model_sign, number_in(sign));
        EXPECT_EQ(read.model_format_pattern, pattern);
        EXPECT_TRUE(read.model_loaded);
    }
}

TEST(read_model_file, given_a_fault_then_no_model_is_loaded)
{
    ModelCase model(2, 1, "1 2");
    ASSERT_EQ(model.read(), Status::good);
    model.base.model_file = model.folder.write("large", "3 1e33");
    EXPECT_EQ(model.read(), Status::bad);
    EXPECT_FALSE(model.base.model.model_loaded);
    EXPECT_EQ(model.base.model.model_max, -1e32F);
    model.base.model_file = model.folder.file("missing");
    EXPECT_EQ(model.read(), Status::bad);
    model.base.mesh_loaded = false;
    EXPECT_EQ(model.read(), Status::bad);
    const std::string error = "An error occurred while reading the model file : \r";
    EXPECT_EQ(model.host.dialogs.messages,
              (std::vector<std::string>{ error + "the value of cell 2 1 1 is beyond single precision in internal units",
                                         error + "cannot open " + model.folder.file("missing") + ": No such file or directory",
                                         "No mesh file has been specified" }));
}

TEST(read_model_file, given_nulls_above_then_the_lowest_top_of_a_value_is_the_ground)
{
    // three columns: a value in layer 1, one from layer 3 on, and none
    ModelCase model(3, 3, "1 -1 -1  -1 -1 2  -1 -1 -1");
    ASSERT_EQ(model.read(), Status::good);
    EXPECT_EQ(model.base.ground_bottom, 80.0F);
    model.base.ground_bottom = 7;
    model.base.mesh.topo_present = true;
    ASSERT_EQ(model.read(true), Status::good); // the mesh's own topography stays
    EXPECT_EQ(model.base.ground_bottom, 7.0F);
    ASSERT_EQ(model.read(false), Status::good);
    EXPECT_EQ(model.base.ground_bottom, 80.0F);
    EXPECT_EQ(model.base.mesh.padding_z_top, 0);

    ModelCase layered(1, 3, "5 -1\n2");
    layered.base.mesh.mesh_format = 1;
    layered.base.mesh.air_cells = layered.base.mesh.sea_cells = 1;
    ASSERT_EQ(layered.read(), Status::good);
    EXPECT_EQ(layered.base.ground_bottom, 90.0F);
    EXPECT_EQ(layered.base.mesh.padding_z_top, 2);
}
