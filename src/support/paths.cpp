#include "support/paths.h"

#include "support/fault.h"
#include "support/text.h"

#include <algorithm>
#include <atomic>
#include <random>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr char separator = '\\';

std::vector<std::string> parts_of(std::string_view path)
{
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = path.find(separator);
        parts.emplace_back(path.substr(0, end));
        if (end == std::string_view::npos) return parts;
        path.remove_prefix(end + 1);
    }
}

/// Where the drive ends: behind the colon of "C:", otherwise at the start.
std::size_t drive_length(std::string_view path) { return path.size() >= 2 && path[1] == ':' ? 2 : 0; }

}

fs::path host_path(std::string_view definition_path)
{
    std::string text(definition_path);
    std::replace(text.begin(), text.end(), separator, '/');
    return fs::path(reinterpret_cast<const char8_t *>(text.c_str()));
}

std::string definition_path(const fs::path & host)
{
    const std::u8string generic = host.generic_u8string();
    std::string text(reinterpret_cast<const char *>(generic.data()), generic.size());
    std::replace(text.begin(), text.end(), '/', separator);
    return text;
}

std::string find_file(std::string_view path)
{
    path = trim(path);
    std::error_code error;
    if (path.empty() || !fs::exists(host_path(path), error) || fs::is_directory(host_path(path), error)) return {};
    return file_name_of_path(path);
}

bool folder_exists(std::string_view path)
{
    std::error_code error;
    return !trim(path).empty() && fs::is_directory(host_path(trim(path)), error);
}

std::string file_name_of_path(std::string_view path)
{
    path = trim(path);
    path = trim(path.substr(0, path.find('\0')));
    return std::string(path.substr(path.find_last_of(separator) + 1));
}

std::string folder_of_path(std::string_view path)
{
    path = trim(path);
    if (path.find(separator) == std::string_view::npos) return {};
    if (path.ends_with(separator)) {
        if (path.find('.') == std::string_view::npos) return std::string(path);
        return with_backslash(absolute_path(path));
    }
    const std::string whole = absolute_path(path);
    return whole.substr(0, whole.find_last_of(separator) + 1);
}

std::string file_stem_of_path(std::string_view path)
{
    const std::string name = file_name_of_path(path);
    return name.substr(0, name.find_last_of('.'));
}

std::string file_extension_of_path(std::string_view path)
{
    const std::string name = file_name_of_path(path);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string folder_without_drive(std::string_view path)
{
    std::string folder = folder_of_path(path);
    folder.erase(0, drive_length(folder));
    if (!folder.starts_with(separator)) folder.insert(folder.begin(), separator);
    return with_backslash(folder);
}

std::string drive_of_path(std::string_view path)
{
    const std::string whole = absolute_path(path);
    return whole.substr(0, drive_length(whole));
}

std::string absolute_path(std::string_view path)
{
    // A drive makes a path whole on every host: on one without drives it stays the text that it is.
    const std::string_view behind = path.substr(drive_length(path));
    if (behind.size() < path.size() && behind.starts_with(separator))
        return std::string(path.substr(0, 2)) + definition_path(host_path(behind).lexically_normal());
    std::error_code error;
    const fs::path whole = fs::absolute(host_path(path), error);
    return error ? std::string(path) : definition_path(whole.lexically_normal());
}

std::string relative_path(std::string_view from, std::string_view to)
{
    if (from.substr(0, 3) != to.substr(0, 3)) return std::string(to);
    std::vector<std::string> from_parts = parts_of(from);
    const std::vector<std::string> to_parts = parts_of(to);
    if (from_parts.back().empty()) from_parts.pop_back();
    std::size_t common = 0;
    while (common < from_parts.size() && common < to_parts.size() && from_parts[common] == to_parts[common]) ++common;
    std::string way;
    for (std::size_t i = common; i < from_parts.size(); ++i) way += "..\\";
    for (std::size_t i = common; i < to_parts.size(); ++i) way += to_parts[i] + separator;
    if (!way.empty()) way.pop_back();
    return way;
}

std::string with_backslash(std::string path)
{
    if (!path.ends_with(separator)) path += separator;
    return path;
}

void make_folder_path(std::string_view path)
{
    std::error_code error;
    fs::create_directories(host_path(path), error);
    if (!folder_exists(path))
        throw FileFault("cannot create the folder", std::string(path), error ? error.message() : "a file of that name exists");
}

void change_to_path(std::string_view path)
{
    path = trim(path);
    if (path.empty()) return;
    std::error_code error;
    const fs::path whole = fs::absolute(host_path(path), error);
    if (error) return;
    const fs::path place = whole.has_filename() ? whole : whole.parent_path(); // without a separator at its end
    fs::current_path(fs::is_directory(place, error) ? place : place.parent_path(), error);
}

std::string current_folder()
{
    std::error_code error;
    return definition_path(fs::current_path(error));
}

void delete_file(std::string_view path)
{
    std::error_code error;
    if (!find_file(path).empty()) fs::remove(host_path(path), error);
}

std::string make_temp_file_name(std::string_view folder, std::string_view prefix)
{
    static std::atomic<unsigned> next{ std::random_device{}() };
    std::error_code error;
    std::string base(folder);
    if (base.empty()) base = definition_path(fs::temp_directory_path(error));
    base = with_backslash(base);
    for (;;) {
        std::string name = base + std::string(prefix) + std::to_string(next++) + ".tmp";
        if (!fs::exists(host_path(name), error)) return name;
    }
}
