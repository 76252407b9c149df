#pragma once

#include "support/paths.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

/// The bytes of a file; empty when there is none.
inline std::string bytes_of(const std::filesystem::path & file)
{
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

/// A folder of its own for one test, gone with it. Paths are given as definition paths.
class TemporaryFolder {
public:
    TemporaryFolder()
        : folder_(std::filesystem::temp_directory_path() / host_path(file_name_of_path(make_temp_file_name("", "test"))))
    {
        std::filesystem::create_directories(folder_);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder & operator=(const TemporaryFolder &) = delete;

    std::string path() const { return definition_path(folder_); }
    std::string file(const std::string & name) const { return path() + "\\" + name; }

    /// Writes a file and gives its path.
    std::string write(const std::string & name, std::string_view content) const
    {
        std::ofstream(host_path(file(name)), std::ios::binary) << content;
        return file(name);
    }
    /// The bytes of a file; empty when there is none.
    std::string read(const std::string & name) const { return bytes_of(host_path(file(name))); }
    bool has(const std::string & name) const { return std::filesystem::exists(host_path(file(name))); }

private:
    std::filesystem::path folder_;
};
