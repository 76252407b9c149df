#include "app/started_session.h"
#include "fakes/case_table.h"

namespace {

Texts words_of(const std::string & line)
{
    std::istringstream words(line);
    return { std::istream_iterator<std::string>(words), {} };
}

}

TEST(recent_files, given_files_opened_one_by_one_then_the_newest_stands_first_and_once)
{
    for (const auto & [opened, list] : cases_of<2>("recent_files.cases")) {
        SCOPED_TRACE(opened);
        StartedSession s;
        for (const std::string & path : words_of(opened)) add_file_to_MRU(s.session, path, s.host);
        EXPECT_EQ(s.session.recent_files, words_of(list));
        Texts kept;
        for (const auto & [name, path] : s.settings.kept) kept.push_back(path); // MRU1, MRU2, ...
        EXPECT_EQ(kept, words_of(list));
    }
}

TEST(recent_files, given_what_the_settings_hold_when_started_then_what_is_there_is_shown)
{
    for (const auto & [kept, captions] : cases_of<2>("kept_files.cases")) {
        SCOPED_TRACE(kept);
        StartedSession s;
        int number = 0;
        for (const std::string & word : words_of(kept)) {
            const std::string name = "MRU" + std::to_string(++number), file = word.substr(1);
            if (word[0] == '@') s.folder.write(file, "");
            if (word[0] != '!') s.settings.kept["ZEB_QVinv3d_setup\\" + name] = word == "." ? "" : file;
        }
        start_session(s.session, s.host);
        std::string shown;
        for (int i = 0; i < 6; ++i)
            if (const Control & item = s.control("menu_file_list", i); item.visible) shown += (i > 0 ? " " : "") + item.caption;
        EXPECT_EQ(shown, captions);
        EXPECT_EQ(s.control("menu_sep_file").visible, !shown.empty());
    }
}

TEST(session, given_the_end_of_a_run_then_the_next_starts_in_its_folder_unless_that_has_gone)
{
    StartedSession s;
    const std::string work = s.folder.file("work"), other = s.folder.file("other");
    for (const std::string & folder : { work, other }) make_folder_path(folder);
    s.session.temporary_files = { s.folder.write("~copy.inp", ""), s.folder.write("mine.inp", "") };
    change_to_path(work);
    end_session(s.session, s.host);
    EXPECT_FALSE(s.folder.has("~copy.inp"));
    EXPECT_TRUE(s.folder.has("mine.inp"));
    for (const std::string & place : { work, other }) {
        change_to_path(other);
        if (place == other) std::filesystem::remove(host_path(work));
        start_session(s.session, s.host);
        EXPECT_EQ(current_folder(), place);
        EXPECT_EQ(s.control("Dir1").text, place);
        EXPECT_EQ(s.said(), Texts());
    }
}
