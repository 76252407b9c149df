#include "data/database/geosoft_library.h"

#include "support/fault.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#ifdef _WIN32

LoadedLibrary::LoadedLibrary(const std::string & name) : file_(name + ".dll")
{
    handle_ = reinterpret_cast<void *>(::LoadLibraryA(file_.c_str())); // which looks into the folders of PATH itself
    if (handle_ == nullptr) throw Fault(file_ + " cannot be loaded: system error " + std::to_string(::GetLastError()));
}

void * LoadedLibrary::find(const char * operation) const
{
    const auto found = ::GetProcAddress(reinterpret_cast<HMODULE>(handle_), operation);
    if (found == nullptr) throw Fault(file_ + " has no operation " + operation);
    return reinterpret_cast<void *>(found);
}

#else

namespace {

/// Where a library may lie: where the system looks, and in the folders of PATH.
std::vector<std::string> places_of(const std::string & file)
{
    std::vector<std::string> places = { file };
    const char * const path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    std::error_code ignored;
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (folder.empty()) continue;
        const std::filesystem::path place = std::filesystem::path(folder) / file;
        if (std::filesystem::exists(place, ignored)) places.push_back(place.string());
    }
    return places;
}

}

LoadedLibrary::LoadedLibrary(const std::string & name) : file_("lib" + name + ".so")
{
    std::string reason;
    for (const std::string & place : places_of(file_)) {
        handle_ = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (handle_ != nullptr) return;
        const char * const words = ::dlerror();
        reason = words != nullptr ? words : place;
    }
    throw Fault(reason);
}

void * LoadedLibrary::find(const char * operation) const
{
    void * const found = ::dlsym(handle_, operation);
    if (found == nullptr) throw Fault(file_ + " has no operation " + operation);
    return found;
}

#endif
