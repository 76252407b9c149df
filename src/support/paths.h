#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Paths inside definitions, scripts and messages are texts with "\" between their parts: definition paths. All procedures here
// take and give those; `host_path` and `definition_path` are the one place where they meet the paths of the disk.

/// The path on disk of a definition path: "\" becomes the host's separator. Relative paths stay relative.
std::filesystem::path host_path(std::string_view definition_path);
/// A path picked on this computer as it is held in definitions.
std::string definition_path(const std::filesystem::path & host);

/// The bare name found for a path, empty when the path is blank or names no file. Never fails.
std::string find_file(std::string_view path);
/// True when the path is an existing folder.
bool folder_exists(std::string_view path);

/// The part behind the last "\", cut at a NUL; empty for a path that ends in "\".
std::string file_name_of_path(std::string_view path);
/// The absolute path up to and with its last "\"; empty for a path without one. A path ending in "\" without a dot stays.
std::string folder_of_path(std::string_view path);
/// The file name up to its last dot.
std::string file_stem_of_path(std::string_view path);
/// What follows the last dot of the file name, empty when there is none.
std::string file_extension_of_path(std::string_view path);
/// The folder without the drive, with a "\" at both ends.
std::string folder_without_drive(std::string_view path);
/// The drive ("C:") of the absolute path; empty for a path of a host without drives.
std::string drive_of_path(std::string_view path);
/// The path made absolute against the current folder, "." and ".." resolved.
std::string absolute_path(std::string_view path);
/// The way from the folder `from` (with a trailing "\") to `to`; `to` itself when their first three characters differ.
std::string relative_path(std::string_view from, std::string_view to);
/// The path with a "\" at its end.
std::string with_backslash(std::string path);

/// Creates each missing folder along the path. Fails with a `FileFault`.
void make_folder_path(std::string_view path);
/// Makes the folder, or the folder of the file, current; the parent of a folder that has gone. Never fails.
void change_to_path(std::string_view path);
/// The current folder as a definition path, without a "\" at its end.
std::string current_folder();
/// Deletes a file when it exists. Never fails.
void delete_file(std::string_view path);
/// A new unique file name in the folder (the system's temporary one when empty), beginning with `prefix`. No file is created.
std::string make_temp_file_name(std::string_view folder, std::string_view prefix);
