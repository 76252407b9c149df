#include "app/file_settings.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(file_settings, given_writes_of_two_programs_then_each_reads_what_both_wrote)
{
    const TemporaryFolder folder;
    FileSettings one(folder.file("new\\s.json")), two(folder.file("new\\s.json"));
    EXPECT_TRUE(one.write("ZEB_QVinv3d_setup", "CWD", "\\home\\Zo\xc3\xab \"x\""));
    EXPECT_TRUE(two.write("IGRF", "Date", ""));
    EXPECT_TRUE(one.write("IGRF", "Year", "2020"));
    EXPECT_EQ(folder.read("new\\s.json"), "{\n"
                                          "    \"Brindlewood\": {\n"
                                          "        \"IGRF\": {\n"
                                          "            \"Date\": \"\",\n"
                                          "            \"Year\": \"2020\"\n"
                                          "        },\n"
                                          "        \"ZEB_QVinv3d_setup\": {\n"
                                          "            \"CWD\": \"\\\\home\\\\Zo\xc3\xab \\\"x\\\"\"\n"
                                          "        }\n"
                                          "    }\n"
                                          "}\n");
    EXPECT_EQ(two.read("ZEB_QVinv3d_setup", "CWD", "<no value>"), "\\home\\Zo\xc3\xab \"x\"");
    EXPECT_EQ(one.read("IGRF", "Date", "<no value>"), ""); // kept as blank, which is not the same as not kept
    EXPECT_EQ(one.read("IGRF", "CWD", "<no value>"), "<no value>");
    EXPECT_FALSE(one.write("IGRF", "Year", "no UTF-8: \xff"));
    EXPECT_EQ(one.names("IGRF"), std::vector<std::string>({ "Date", "Year" }));
    EXPECT_EQ(one.names("none"), std::vector<std::string>());
    EXPECT_EQ(two.read("IGRF", "Year", "<no value>"), "2020");
}

TEST(file_settings, given_a_damaged_file_then_it_is_ignored_and_kept_aside_at_the_next_write)
{
    for (const char * damaged : { "", "{ \"Brindlewood\": { \"S\": { \"a\": \"1\" }", "[1]", "{\"Brindlewood\": 7}",
                                  "{\"Brindlewood\": {\"S\": \"a\"}}" }) {
        SCOPED_TRACE(damaged);
        const TemporaryFolder folder;
        FileSettings settings(folder.write("s.json", damaged));
        EXPECT_EQ(settings.read("S", "a", "start"), "start");
        EXPECT_EQ(folder.read("s.json"), damaged);
        EXPECT_TRUE(settings.write("S", "b", "2"));
        EXPECT_EQ(settings.read("S", "b", "start"), "2");
        EXPECT_TRUE(folder.has("s.json.damaged"));
        EXPECT_EQ(folder.read("s.json.damaged"), damaged);
    }
}

TEST(file_settings, given_a_file_that_may_not_be_written_then_it_stays_and_is_still_read)
{
    const TemporaryFolder folder;
    const char * before = "{\"Brindlewood\": {\"S\": {\"a\": \"1\", \"n\": 5}}}";
    const std::string path = folder.write("s.json", before);
    fs::permissions(host_path(path), fs::perms::owner_read);
    EXPECT_FALSE(FileSettings(path).write("S", "a", "2"));
    EXPECT_EQ(FileSettings(path).read("S", "a", "start"), "1");
    EXPECT_EQ(FileSettings(path).read("S", "n", "start"), "start");     // not a text
    EXPECT_FALSE(FileSettings(path + "\\s.json").write("S", "a", "2")); // no such folder can be made
    EXPECT_EQ(folder.read("s.json"), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(host_path(folder.path())), {}), 1);
}
