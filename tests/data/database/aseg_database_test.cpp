#include "data/database/database_texts.h"
#include "fakes/case_table.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

TEST(aseg_database, given_a_definition_and_its_data_then_columns_and_rows_or_what_does_not_fit)
{
    for (const auto & [definition, data, names, rows] : cases_of<4>("database/aseg_database.cases")) {
        SCOPED_TRACE(definition + " | " + data);
        const TemporaryFolder folder;
        const std::string path = folder.write("s.dfn", file_of(definition));
        if (!data.empty()) folder.write("S.Dat", data);
        DatabaseTexts read(path, {});
        for (std::size_t at; (at = read.rows.find(folder.path())) != read.rows.npos;)
            read.rows.erase(at, folder.path().size() + 1);
        if (const std::size_t at = read.rows.find("S.Dat"); at != read.rows.npos) read.rows.replace(at, 5, "s.dat");
        EXPECT_EQ(read.names, names);
        EXPECT_EQ(read.rows, rows);
    }
}

TEST(aseg_database, given_a_bad_record_beyond_the_beginning_then_it_opens_and_no_reading_is_given)
{
    const TemporaryFolder folder;
    std::string data;
    for (int i = 1; i <= 20000; ++i) data += i == 15000 ? "12x4\n" : "1234\n";
    folder.write("s.dat", data);
    const DatabaseTexts read(folder.write("s.dfn", "DEFN 1 ST=RECD,RT=DATA;X:F2;Y:F2\n"), {});
    EXPECT_EQ(read.names, "X;Y");
    EXPECT_EQ(
        read.rows.substr(read.rows.find(": line")),
        ": line 15000: \"x4\" stands where Y should be a number, in characters 3 to 4. The widths in s.dfn may not be those of "
        "the data");
}
