#include "data/described_points.h"
#include "fakes/temporary_folder.h"

#include <cstdlib>
#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

struct Reader : PointsReader {
    TemporaryFolder folder;

    Reader()
    {
        ::setenv("PATH", ("/gone::" GEOSOFT_FOLDER), 1);
        recorded.debug.level = 1;
        recorded.debug.file = folder.file("a.log");
    }

    Status read(const std::string & name)
    {
        LocationSource source;
        source.file_type = 2;
        source.file_name = folder.write(name, "any bytes");
        source.x_column = 3, source.y_column = 4, source.z_column = 9, source.value_column[0] = 2, source.line_column = 7;
        return PointsReader::read(source);
    }

    /// What the library still holds.
    static int things_left()
    {
        void * const library = ::dlopen(GEOSOFT_FOLDER "/libgeogx.so", RTLD_NOW | RTLD_NOLOAD);
        void * const function = library != nullptr ? ::dlsym(library, "things_left") : nullptr;
        return function != nullptr ? reinterpret_cast<std::int32_t (*)()>(function)() : -1;
    }
};

TEST(geosoft_database, given_the_library_then_points_of_all_kinds_of_channels_and_nothing_is_left)
{
    Reader reader;
    for (int time = 0; time < 2; ++time) { // the session stays
        ASSERT_EQ(reader.read("a.gdb"), Status::good);
        EXPECT_EQ(
            described(reader.data),
            "724307.21 491569.63 176.82 100101 [L100101]; 723880.91 491709.2 217.31 100101 [L100101]; 723449.81 491852.57 "
            "231.55 100101 [L100101]; 721343.57 491892.9 178.29 100201 [L100201]; 721809.78 491748.62 182.27 100201 [L100201]; "
            "718075.55 489746.46 178.65 100602 [L100602]");
        EXPECT_EQ(Reader::things_left(), 0);
    }
    EXPECT_NE(reader.recorded.debug.line_count, 0);
    EXPECT_TRUE(reader.folder.read("a.log").ends_with("1 : Close OASIS database 5\r\n2 : Close OASIS database 5\r\n"));
}

TEST(geosoft_database, given_a_database_that_cannot_be_read_then_the_vendors_words_and_nothing_is_left)
{
    const std::pair<const char *, const char *> cases[] = {
        { "no.gdb", "The database could not be opened: FILE. Geosoft error: 12 in module DB description not readable" },
        { "bad.gdb", "An error occurred while reading the location file : FILE: a channel cannot be read on line 100602. "
                     "Geosoft error: 12 in module DB description not readable" },
    };
    for (const auto & [file, message] : cases) {
        Reader reader;
        reader.recorded.debug.level = 0;
        reader.data.point_count = 7;
        EXPECT_EQ(reader.read(file), Status::bad);
        std::string expected = message;
        expected.replace(expected.find("FILE"), 4, reader.folder.file(file));
        EXPECT_EQ(reader.recorded.dialogs.messages, std::vector<std::string>{ expected });
        EXPECT_EQ(reader.data.point_count, 7);
        EXPECT_EQ(Reader::things_left(), 0);
    }
}

}
