#include "app/started_session.h"
#include "fakes/case_table.h"

namespace {

std::string joined(const Texts & texts)
{
    std::string line;
    for (const std::string & text : texts) line += (line.empty() ? "" : " ") + text;
    return line;
}

Texts words_of(const std::string & line)
{
    std::istringstream words(line);
    return { std::istream_iterator<std::string>(words), {} };
}

/// The list as the settings hold it.
std::string kept_list(SettingsStore & settings)
{
    Texts kept;
    for (const char * name : { "MRU1", "MRU2", "MRU3", "MRU4", "MRU5", "MRU6", "MRU7" })
        if (const std::string path = settings.read("ZEB_QVinv3d_setup", name, ""); !path.empty()) kept.push_back(path);
    return joined(kept);
}

}

TEST(recent_files, given_files_opened_one_by_one_then_the_newest_stands_first_and_once)
{
    const struct {
        const char * opened;
        const char * list;
    } cases[] = {
        { "a", "a" },
        { "a b c", "c b a" },
        { "a b c a", "a c b" },
        { "a b b", "b a" },
        { "a b c d e f", "f e d c b a" },
        { "a b c d e f g", "g f e d c b" },
        { "a b c d e f a", "a f e d c b" },
    };
    for (const auto & [opened, list] : cases) {
        SCOPED_TRACE(opened);
        StartedSession started;
        for (const std::string & path : words_of(opened)) add_file_to_MRU(started.session, path, started.host);
        EXPECT_EQ(joined(started.session.recent_files), list);
        EXPECT_EQ(kept_list(started.settings), list);
    }
}

TEST(recent_files, given_what_the_settings_hold_when_started_then_what_is_there_is_shown)
{
    // "@" a file that is there, "-" one that has gone, "." a blank text, "!" nothing kept
    const struct {
        const char * kept;
        const char * captions;
    } cases[] = {
        { "!", "" },
        { "@a @b", "1: a 2: b" },
        { "@a -b @c", "1: a 2: c" },
        { "@a . @c", "1: a" },
        { "@a ! @c", "1: a" },
        { "@b @a @b", "1: b 2: a" }, // left behind by a shorter list
        { "-a", "" },
        { "@a @b @c @d @e @f @g", "1: a 2: b 3: c 4: d 5: e 6: f" },
    };
    for (const auto & [kept, captions] : cases) {
        SCOPED_TRACE(kept);
        StartedSession started;
        int number = 0;
        for (const std::string & word : words_of(kept)) {
            const std::string name = "MRU" + std::to_string(++number), file = word.substr(1);
            if (word[0] == '@') started.folder.write(file, "");
            if (word[0] != '!') started.settings.kept["ZEB_QVinv3d_setup\\" + name] = word == "." ? "" : file;
        }
        start_session(started.session, started.host);
        Texts shown;
        for (int i = 0; i < 6; ++i)
            if (started.control("menu_file_list", i).visible) shown.push_back(started.control("menu_file_list", i).caption);
        EXPECT_EQ(joined(shown), captions);
        EXPECT_EQ(started.control("menu_sep_file").visible, !shown.empty());
    }
}

TEST(session, given_the_end_of_a_run_then_the_next_starts_in_its_folder_unless_that_has_gone)
{
    StartedSession started;
    const std::string work = started.folder.file("work"), other = started.folder.file("other");
    for (const std::string & folder : { work, other }) make_folder_path(folder);
    started.session.temporary_files = { started.folder.write("~copy.inp", ""), started.folder.write("mine.inp", "") };
    change_to_path(work);
    end_session(started.session, started.host);
    EXPECT_EQ(started.settings.kept["ZEB_QVinv3d_setup\\CWD"], work);
    EXPECT_FALSE(started.folder.has("~copy.inp"));
    EXPECT_TRUE(started.folder.has("mine.inp"));

    for (const bool gone : { false, true }) {
        change_to_path(other);
        if (gone) std::filesystem::remove(host_path(work));
        start_session(started.session, started.host);
        EXPECT_EQ(current_folder(), gone ? other : work);
        EXPECT_EQ(started.control("Dir1").text, gone ? other : work);
        EXPECT_EQ(started.said(), Texts());
    }
}
