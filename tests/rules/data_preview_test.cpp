#include "rules/data_preview.h"
#include "rules/started_setup.h"

#include <gtest/gtest.h>

namespace {

std::string joined(const std::vector<std::string> & parts, const char * between)
{
    std::string all;
    for (const std::string & part : parts) all += (&part == parts.data() ? "" : between) + part;
    return all;
}

}

TEST(preview, given_a_file_then_its_table_or_what_it_is)
{
    for (const auto & [slot, name, content, lines, names, uses, rows, head, summary] : cases_of<9>("data_preview.cases")) {
        SCOPED_TRACE(name + ": " + content);
        const TemporaryFolder folder;
        StartedSetup started;
        if (!lines.empty()) started.load_lines(lines);
        if (name != "gone.dat") folder.write(name, file_of(content));
        started.setup.definition.data_file[static_cast<std::size_t>(number_in(slot))] = folder.file(name);
        const DataPreview preview = preview_data_file(started.setup, number_in(slot));
        EXPECT_EQ(joined(preview.names, " "), names);
        EXPECT_EQ(joined(preview.uses, ";"), uses);
        std::vector<std::string> shown;
        for (const auto & row : preview.rows) shown.push_back(joined(row, ";"));
        EXPECT_EQ(joined(shown, " / "), rows);
        EXPECT_EQ(joined(preview.head, " / "), head);
        EXPECT_EQ(preview.summary.substr(0, preview.summary.find(folder.path())), summary);
    }
}

TEST(preview, given_a_large_file_then_only_its_beginning_is_looked_at)
{
    const TemporaryFolder folder;
    std::string content = "X Y Z T\n";
    for (int line = 0; line < 100000; ++line) content += "10 20 30 40\n";
    StartedSetup started;
    auto & definition = started.setup.definition;
    definition.data_file[0] = folder.write("large.dat", content);
    definition.data_name_line[0] = 90000; // beyond what is looked at, so its last whole line stands for it
    EXPECT_EQ(preview_data_file(started.setup, 0).rows.size(), 30U);
    EXPECT_EQ(joined(preview_data_file(started.setup, 0).names, " "), "10 20 30 40");
    definition.data_first_line[0] = 90000;
    EXPECT_EQ(preview_data_file(started.setup, 0).summary,
              "No data line stands in the beginning of the file: its first data line is given as line 90000");
    EXPECT_EQ(preview_data_file(started.setup, 0).head.size(), 5461U); // 65536 bytes less 8 of the names, by 12
}
