#include "app/file_settings.h"
#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(file_settings, given_a_write_then_the_next_program_reads_it_and_the_rest_stays)
{
    const TemporaryFolder folder;
    const std::string path = folder.file("new\\settings.json");
    EXPECT_TRUE(FileSettings(path).write("ZEB_QVinv3d_setup", "CWD", "\\home\\Zo\xc3\xab \"x\""));
    EXPECT_TRUE(FileSettings(path).write("IGRF", "Date", ""));
    EXPECT_EQ(folder.read("new\\settings.json"), "{\n"
                                                 "    \"Brindlewood\": {\n"
                                                 "        \"IGRF\": {\n"
                                                 "            \"Date\": \"\"\n"
                                                 "        },\n"
                                                 "        \"ZEB_QVinv3d_setup\": {\n"
                                                 "            \"CWD\": \"\\\\home\\\\Zo\xc3\xab \\\"x\\\"\"\n"
                                                 "        }\n"
                                                 "    }\n"
                                                 "}\n");
    FileSettings settings(path);
    EXPECT_EQ(settings.read("ZEB_QVinv3d_setup", "CWD", "<no value>"), "\\home\\Zo\xc3\xab \"x\"");
    EXPECT_EQ(settings.read("IGRF", "Date", "<no value>"), ""); // kept as blank, which is not the same as not kept
    EXPECT_EQ(settings.read("IGRF", "CWD", "<no value>"), "<no value>");
    EXPECT_FALSE(settings.write("IGRF", "Date", "no UTF-8: \xff"));
    EXPECT_EQ(settings.read("IGRF", "Date", "<no value>"), "");
}

TEST(file_settings, given_two_programs_at_once_then_neither_loses_what_the_other_wrote)
{
    const TemporaryFolder folder;
    FileSettings one(folder.file("s.json")), two(folder.file("s.json"));
    EXPECT_TRUE(one.write("S", "a", "1"));
    EXPECT_TRUE(two.write("S", "b", "2"));
    EXPECT_TRUE(one.write("S", "c", "3"));
    for (FileSettings * program : { &one, &two })
        EXPECT_EQ(program->read("S", "a", "") + program->read("S", "b", "") + program->read("S", "c", ""), "123");
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
    const std::string path = folder.write("s.json", "{\"Brindlewood\": {\"S\": {\"a\": \"1\", \"n\": 5}}}");
    const std::string before = folder.read("s.json");
    fs::permissions(host_path(path), fs::perms::owner_read);
    EXPECT_FALSE(FileSettings(path).write("S", "a", "2"));
    EXPECT_EQ(FileSettings(path).read("S", "a", "start"), "1");
    EXPECT_EQ(FileSettings(path).read("S", "n", "start"), "start"); // not a text
    EXPECT_FALSE(FileSettings(path + "\\s.json").write("S", "a", "2"));
    EXPECT_EQ(folder.read("s.json"), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(host_path(folder.path())), {}), 1);
}
