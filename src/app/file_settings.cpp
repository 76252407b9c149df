#include "app/file_settings.h"

#include "support/file_bytes.h"
#include "support/file_lock.h"
#include "support/file_writer.h"
#include "support/paths.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>

#ifdef _WIN32
#include "app/registry_settings.h"
#endif

namespace fs = std::filesystem;

namespace {

using Json = nlohmann::json;

constexpr const char * application = "Brindlewood";
constexpr std::chrono::milliseconds longest_wait(2000); // for another program; its own lasts some milliseconds

std::string user_settings_file()
{
    const auto folder_in = [](const char * variable) {
        const char * const text = std::getenv(variable);
        return text == nullptr ? fs::path() : fs::path(text);
    };
    fs::path folder = folder_in("XDG_CONFIG_HOME");
    if (!folder.is_absolute()) folder = folder_in("HOME") / ".config";
    return folder.is_absolute() ? definition_path(folder / "zeb_qvinv3d" / "settings.json") : std::string();
}

bool exists(const std::string & path)
{
    std::error_code error;
    return fs::exists(host_path(path), error) || error;
}

/// Write-protected by its owner; replacing it would get round that.
bool is_protected(const std::string & path)
{
    std::error_code error;
    constexpr fs::perms writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (fs::status(host_path(path), error).permissions() & writing) == fs::perms::none;
}

std::string text_of(const std::string & path) { return std::string(FileBytes(path).text()); }

/// The settings in a text: application, section and name around each; nothing when the text is damaged.
std::optional<Json> settings_in(const std::string & text)
{
    constexpr bool throwing = false;
    constexpr int deepest = 50; // what is kept is copied and written by calls within calls
    bool too_deep = false;
    const auto keep = [&](int depth, Json::parse_event_t, const Json &) {
        too_deep = too_deep || depth > deepest;
        return !too_deep;
    };
    Json settings = Json::parse(text, keep, throwing);
    if (too_deep || !settings.is_object()) return std::nullopt;
    Json & sections = settings[application];
    if (sections.is_null()) sections = Json::object();
    const auto is_object = [](const Json & section) { return section.is_object(); };
    if (!sections.is_object() || !std::ranges::all_of(sections, is_object)) return std::nullopt;
    return settings;
}

}

FileSettings::FileSettings(std::string path) : path_(std::move(path))
{
#ifndef _WIN32
    if (path_.empty()) path_ = user_settings_file();
#endif
}

std::string FileSettings::read(const std::string & section, const std::string & name, const std::string & start)
{
#ifdef _WIN32
    if (path_.empty()) return read_registry(application, section, name, start);
#endif
    try {
        const std::optional<Json> settings = settings_in(text_of(path_));
        return settings ? settings->at(application).at(section).at(name).get<std::string>() : start;
    } catch (const std::exception &) { // no file, no such setting, or not a text
        return start;
    }
}

std::vector<std::string> FileSettings::names(const std::string & section)
{
#ifdef _WIN32
    if (path_.empty()) return registry_names(application, section);
#endif
    std::vector<std::string> all;
    try {
        const std::optional<Json> settings = settings_in(text_of(path_));
        if (settings)
            for (const auto & [name, text] : settings->at(application).at(section).items()) all.push_back(name);
    } catch (const std::exception &) { // no file or no such section
    }
    return all;
}

bool FileSettings::write(const std::string & section, const std::string & name, const std::string & text)
{
#ifdef _WIN32
    if (path_.empty()) return write_registry(application, section, name, text);
#endif
    try {
        if (path_.empty()) return false;
        const std::string folder = folder_of_path(absolute_path(path_));
        make_folder_path(folder);
        // From reading to replacing: what another program keeps meanwhile would be lost.
        const std::optional<FileLock> lock = lock_path(folder, longest_wait);
        const bool is_there = exists(path_);
        if (!lock || (is_there && is_protected(path_))) return false;
        const std::optional<Json> before = is_there ? settings_in(text_of(path_)) : Json::object();
        Json settings = before.value_or(Json::object());
        settings[application][section][name] = text;
        if (settings == before) return true;
        const std::string content = settings.dump(4) + "\n"; // fails for a text that is not UTF-8
        if (!before) fs::rename(host_path(path_), host_path(path_ + ".damaged"));
        replace_file(path_, content);
        return true;
    } catch (const std::exception &) {
        return false;
    }
}
