#include "data/observed_output.h"
#include "fakes/definition_values.h"

#include <gtest/gtest.h>

namespace {

/// 3 x 2 cells with readings in cells 1, 3 and 5 by number, and five readings in the order of their file.
ObservedReadings small_readings()
{
    ObservedReadings readings;
    SelectedData & s = readings.selected;
    s.cells_x = 3, s.cells_y = 2;
    s.occupied = { 1, 0, 1, 0, 1, 0 };
    s.x = { 5, 0, 25.5F, 0, 15, 0 };
    s.y = { 5, 0, 5, 0, 15, 0 };
    s.z = { -1234567936.0F, 0, -120, 0, 130, 0 };
    s.value_1 = { 1234.5F, 0, -1e32F, 0, 100, 0 };
    s.value_2 = { 0, 0, 2, 0, -1e32F, 0 };
    s.value_3 = { 0.5F, 0, 1, 0, 2, 0 };
    s.line = { 1, 0, 2, 0, 0, 0 };
    s.extra_value = { 7, 0, 8, 0, 9, 0 };
    s.line_name = { "L1", "a line of a long name" };
    return readings;
}

void add_point(ObservedReadings & readings, std::int32_t cell_x, std::int32_t cell_y, double value)
{
    ++readings.all.point_count;
    readings.all.points.push_back({ .cell_x = cell_x, .cell_y = cell_y, .line = 1, .x = 724307.206057495, .value_1 = value });
}

InversionDefinition small_definition(const std::string & changes = "")
{
    InversionDefinition definition;
    take_lines("Inversion method: 1; Error percent and floor: 10 0.5", definition); // of a method without a header
    take_lines(changes, definition);
    return definition;
}

const OutputWindow whole = { 1, 4, 1, 3 };

struct Output {
    RecordedHost recorded;
    TemporaryFolder folder;
    std::int32_t count = -1;

    std::string write(const InversionDefinition & definition, const ObservedReadings & readings, bool extended = false,
                      const OutputWindow & window = whole)
    {
        count = write_inversion_data(definition, {}, readings, extended, folder.file("mag.obs"), window, recorded.host);
        return folder.read("mag.obs");
    }
};

TEST(write_inversion_data, given_one_reading_per_cell_then_the_file_of_the_window)
{
    Output output;
    EXPECT_EQ(output.write(small_definition(), small_readings(), false, { 2, 3, 1, 2 }), "");
    EXPECT_TRUE(output.count == 0 && !output.folder.has("mag.obs"));
    EXPECT_EQ(output.write(small_definition(), small_readings()), bytes_of(TEST_DATA_FOLDER "/one_value.obs"));
    EXPECT_EQ(output.count, 3);
    // 100 has the error of 10 by its scale; the other values are not compressed
    const InversionDefinition definition =
        small_definition("Obs data types: 20 21 22; sLog Scaling flag: 1; Error percent and floor: 10 0;"
                         "Obs data definitions: 2 0 1 5 1 2 3 4 0 6 0");
    EXPECT_EQ(output.write(definition, small_readings(), true, { 2, 4, 1, 3 }), bytes_of(TEST_DATA_FOLDER "/three_values.obs"));
}

TEST(write_inversion_data, given_every_reading_then_the_first_of_each_cell_go_out)
{
    ObservedReadings readings = small_readings();
    for (const double value : { 1.0, 2.0, 3.0 }) add_point(readings, 1, 1, value);
    add_point(readings, 2, 2, 4);
    const std::tuple<std::int32_t, OutputWindow, const char *> cases[] = {
        { 2, whole, "124" },
        { 0, whole, "1234" },
        { 0, { 1, 2, 1, 2 }, "1234" }, // the last column and row belong to the window here
        { 0, { 3, 4, 1, 2 }, "" },
    };
    for (const auto & [per_cell, window, expected] : cases) {
        Output output;
        InversionDefinition definition = small_definition();
        definition.data_values_per_cell = per_cell;
        const std::string text = output.write(definition, readings, false, window);
        std::string values; // value 1 of each line
        for (std::size_t at = text.find("\r\n"); at + 2 < text.size(); at = text.find("\r\n", at + 2))
            values += text.substr(at + 2 + 42, 14).substr(8, 1);
        EXPECT_EQ(values, expected);
        EXPECT_TRUE(values.empty() || text.find("   724307.2061") != std::string::npos);
    }
}

TEST(write_inversion_data, given_a_method_and_a_field_then_its_header)
{
    for (const auto & [method, type, declination, transform, header] : cases_of<5>("observed_header.cases")) {
        SCOPED_TRACE(method + " " + type);
        Output output;
        InversionDefinition definition = small_definition("Inversion method: " + method + "; Obs data types: " + type +
                                                          "; Mag field: 60.1 " + declination + " 55000");
        take_lines(transform, definition);
        definition.obs_data_type_count = 1;
        const std::string text = output.write(definition, small_readings());
        EXPECT_EQ(text.substr(0, text.find(" 3 \r\n")), file_of(header));
    }
}

}
