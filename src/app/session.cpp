#include "app/session.h"

#include "app/output_folder.h"
#include "app/shell_commands.h"
#include "form/main_form.h"
#include "rules/apply_definition.h"
#include "support/answers_within.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>

namespace {

std::string recent_file_name(std::size_t index) { return "MRU" + std::to_string(index + 1); }

/// The paths in the settings, up to the first that is blank or not set.
std::vector<std::string> recent_paths(SettingsStore & settings)
{
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < most_recent_files; ++i) {
        std::string path = settings.read(settings_section, recent_file_name(i), no_setting);
        if (trim(path).empty() || path == no_setting) break;
        // A shorter list may have been written over a longer one.
        if (std::ranges::find(paths, path) == paths.end()) paths.push_back(std::move(path));
    }
    return paths;
}

/// Takes over the folder and the files of the last run. The folder is made current only when it is known to be there; a file is
/// left out only when it is known to be gone.
void take_last_run(Session & session, SettingsStore & settings)
{
    const std::string folder = settings.read(settings_section, "CWD", no_setting);
    const std::vector<std::string> paths = recent_paths(settings);
    std::vector<std::function<bool()>> questions = { [folder] { return folder != no_setting && folder_exists(folder); } };
    for (const std::string & path : paths) questions.emplace_back([path] { return !find_file(path).empty(); });
    const auto answers = answers_within(std::chrono::milliseconds(500), questions);
    if (answers[0].value_or(false)) change_to_path(folder);
    session.recent_files.clear();
    for (std::size_t i = 0; i < paths.size(); ++i)
        if (answers[i + 1].value_or(true)) session.recent_files.push_back(paths[i]);
}

}

void start_session(Session & session, Host & host)
{
    Form & form = session.setup.form = make_main_form();
    for (const char * frame : { "Frame_checklist", "Frame_progress", "Label_progress" }) form[frame].visible = false;
    form["RichTextBox_checklist"].text = checklist_text();
    form["Command_close_checklist"].caption = "Close Checklist";
    take_last_run(session, host.settings);
    display_MRU_list(session);
    show_current_folder(form);
    initialise_inversion_form(session.setup, host);
}

void end_session(Session & session, Host & host)
{
    for (std::string & file : session.temporary_files) {
        if (file_name_of_path(file).starts_with('~')) delete_file(file);
        file.clear();
    }
    const std::string folder = current_folder();
    if (!folder.empty()) static_cast<void>(host.settings.write(settings_section, "CWD", folder)); // costs only the folder
}

void add_file_to_MRU(Session & session, const std::string & path, Host & host)
{
    auto & files = session.recent_files;
    files.erase(std::remove(files.begin(), files.end(), path), files.end());
    files.insert(files.begin(), path);
    if (files.size() > most_recent_files) files.pop_back();
    for (std::size_t i = 0; i < files.size(); ++i) // a lost list costs nothing else
        static_cast<void>(host.settings.write(settings_section, recent_file_name(i), files[i]));
    display_MRU_list(session);
}

void display_MRU_list(Session & session)
{
    const auto & files = session.recent_files;
    for (std::size_t i = 0; i < most_recent_files; ++i) {
        Control & item = session.setup.form("menu_file_list", static_cast<int>(i));
        item.visible = i < files.size();
        item.caption = item.visible ? std::to_string(i + 1) + ": " + files[i] : "";
    }
    session.setup.form["menu_sep_file"].visible = !files.empty();
}
