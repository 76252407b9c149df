#include "app/output_folder.h"

#include "support/answers_within.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#ifdef _WIN32
#define NOMINMAX
#include <windows.h>
#endif

namespace {

std::vector<std::string> drives()
{
#ifdef _WIN32
    std::vector<std::string> found;
    const DWORD present = ::GetLogicalDrives();
    for (int i = 0; i < 26; ++i)
        if ((present >> i & 1) != 0) found.push_back(std::string(1, static_cast<char>('A' + i)) + ":");
    return found;
#else
    return { "\\" }; // where no drives exist all folders are on the one root
#endif
}

/// The names of the folders in a folder, in order; none when it cannot be read.
std::vector<std::string> folders_in(const std::string & folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(host_path(folder), error), end; !error && entry != end; entry.increment(error))
        if (std::error_code ignored; entry->is_directory(ignored)) names.push_back(definition_path(entry->path().filename()));
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> folders_in_time(const std::string & folder)
{
    const auto names = std::make_shared<std::vector<std::string>>();
    const auto read = [folder, names] {
        *names = folders_in(folder);
        return true;
    };
    const bool done = answers_within(std::chrono::milliseconds(500), { read })[0].has_value();
    return done ? *names : std::vector<std::string>();
}

void fill_list(Control & list, const std::vector<std::string> & texts)
{
    list.items.clear();
    list.position = -1;
    for (const std::string & text : texts) {
        if (same_text(text, list.text)) list.position = static_cast<int>(list.items.size());
        list.items.push_back({ text, static_cast<std::int32_t>(list.items.size()) });
    }
}

}

Status take_output_folder(const Form & form, FolderName name, OutputFolder & folder, Host & host)
{
    const struct {
        const char * control;
        const char * message;
        bool needed = true;
    } boxes[] = {
        { "Drive1", "No drive has been selected" },
        { "Dir1", "No file location has been selected" },
        { "Text_directory_name", "No output directory name has been specified", name == FolderName::needed },
    };
    for (const auto & box : boxes) {
        if (!box.needed || !trim(form[box.control].text).empty()) continue;
        host.dialogs.message(box.message);
        return Status::bad;
    }
    folder.name = trim(form["Text_directory_name"].text);
    folder.path = output_folder_of(form);
    return Status::good;
}

std::string output_folder_of(const Form & form)
{
    const std::string location(trim(form["Dir1"].text)), name(trim(form["Text_directory_name"].text));
    return with_backslash(with_backslash(location) + name);
}

void show_current_folder(Form & form)
{
    const std::string folder = current_folder(), drive = drive_of_path(folder);
    form["Drive1"].text = drive.empty() ? "\\" : drive;
    form["Dir1"].text = folder;
}

void list_folders(Form & form)
{
    fill_list(form["Drive1"], drives());
    const std::string_view location = trim(form["Dir1"].text);
    fill_list(form["Dir1"],
              location.empty() ? std::vector<std::string>() : folders_in_time(with_backslash(std::string(location))));
}

void pick_location(Form & form, Host & host)
{
    const auto picked = host.dialogs.choose_folder("Select a Folder", form["Dir1"].text);
    if (!picked) return;
    form["Dir1"].text = *picked;
    list_folders(form);
}
