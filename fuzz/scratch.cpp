#include "fuzz/surroundings.h"
#include "support/paths.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

/// In memory, unless the place is given.
fs::path place_of_scratch()
{
    std::error_code error;
    const fs::path memory = "/dev/shm";
    return std::getenv("TMPDIR") == nullptr && fs::is_directory(memory, error) ? memory : fs::temp_directory_path();
}

/// Made at the first use and gone with the process, if that has time.
struct ScratchFolder {
    ScratchFolder()
    {
        folder = place_of_scratch() / host_path(file_name_of_path(make_temp_file_name("", "fuzz")));
        fs::create_directories(folder);
        path = definition_path(folder);
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder & operator=(const ScratchFolder &) = delete;

    fs::path folder;
    std::string path;
};

}

// Fuzzers learn from comparisons. These must not teach them the words, which would then stand in the file that a message quotes.
#ifdef __clang__
__attribute__((no_sanitize("coverage")))
#endif
bool speaks_of_the_library(std::string_view message)
{
    constexpr std::string_view words[] = { "std::b", "std::l", "vector::_M", "basic_string", "json.exception" };
    for (const std::string_view word : words)
        for (std::size_t at = 0; at + word.size() <= message.size(); ++at) {
            std::size_t same = 0;
            while (same < word.size() && message[at + same] == word[same]) ++same;
            if (same == word.size()) return true;
        }
    return false;
}

const std::string & scratch_folder()
{
    static const ScratchFolder scratch;
    return scratch.path;
}

std::string scratch_file(const std::string & name, std::string_view content)
{
    std::string path = scratch_folder() + "\\" + name;
    std::ofstream file(host_path(path), std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) throw Find{ "no room for scratch files" };
    return path;
}
