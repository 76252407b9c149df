#include "support/program_folder.h"

#include <system_error>

#if defined(_WIN32)
#include <vector>
#include <windows.h>
#elif defined(__APPLE__)
#include <cstdint>
#include <mach-o/dyld.h>
#include <string>
#endif

namespace {

std::filesystem::path program_file()
{
#if defined(_WIN32)
    std::vector<wchar_t> name(32768); // the longest path there is
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(name.begin(), name.begin() + length);
#elif defined(__APPLE__)
    std::uint32_t size = 0;
    _NSGetExecutablePath(nullptr, &size); // sets the size that it needs
    std::string name(size, '\0');
    return _NSGetExecutablePath(name.data(), &size) == 0 ? std::filesystem::path(name.c_str()) : std::filesystem::path();
#else
    return "/proc/self/exe";
#endif
}

}

std::filesystem::path program_folder()
{
    std::error_code fault;
    const std::filesystem::path file = std::filesystem::canonical(program_file(), fault);
    return fault ? std::filesystem::path() : file.parent_path();
}
