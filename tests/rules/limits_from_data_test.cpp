#include "rules/limits_from_data.h"
#include "rules/started_setup.h"

#include <gtest/gtest.h>

TEST(set_limits_from_file, given_a_file_then_limits_on_multiples_of_the_cells_around_it_or_one_message)
{
    const TemporaryFolder folder;
    const std::string grid =
        folder.write("grid.asc", "ncols 3\nnrows 2\nxllcorner 1005\nyllcorner 2007\ncellsize 30\nNODATA_value -7777\n"
                                 "-480.5 -396 -400\n-440 -7777 -450\n");
    for (const auto & [button, lines, points, limits, base, message] : cases_of<6>("limits_from_data.cases")) {
        SCOPED_TRACE(button + " " + lines + " " + points);
        InversionDefinition record;
        take_lines("X Range: 1000 1400 100 4; Y Range: 2000 2400 100 4; Z Range: -10 10 10 2 1 0; Data file type: 0;"
                   "Obs data definitions: 1 0 1 0 1 2 3 4 0 0 0; Topo data definitions: 1 0 1 1 2 3; Topo offset: 1.5",
                   record);
        take_lines(lines, record);
        record.data_file[0] = record.data_file[1] =
            folder.write("points.csv", points.find('\n') == points.npos ? "1040,2010,-480.5,10\n1360,2395,-396,21\n" : points);
        record.data_file[2] = grid;
        if (points == "grid") record.data_file[1] = grid;
        if (points == "none") record.data_file[0] = "";

        StartedSetup started;
        started.load(record);
        EXPECT_EQ(set_limits_from_file(started.setup, number_in(button), started.host),
                  message.empty() ? Status::good : Status::bad);
        const auto &low = started.setup.definition.mesh_min, &high = started.setup.definition.mesh_max;
        const auto wanted = parts_of(limits, ' ');
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ((i % 2 == 0 ? low : high)[i / 2], number_in<double>(wanted.at(i))) << limits << " at " << i;
        started.expect("Text_min_val 2 = " + wanted[4] + "; Text_max_val 0 = " + wanted[1] +
                       "; Text_UBC_regional_field = " + base);
        ASSERT_EQ(started.dialogs.messages.size(), message.empty() ? 0U : 1U);
        if (!message.empty()) {
            EXPECT_EQ(started.dialogs.messages[0].substr(0, started.dialogs.messages[0].find(" in the file")), message);
        }
    }
}
