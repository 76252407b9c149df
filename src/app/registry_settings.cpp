#ifdef _WIN32 // built only there; other checkers of sources pass it by

#include "app/registry_settings.h"

#include "host/settings_store.h"

#include <array>
#include <optional>

#define NOMINMAX
#include <windows.h>

namespace {

constexpr const char * shared_branch = "Software\\VB and VBA Program Settings\\"; // layout 1
constexpr const char * own_branch = "Software\\";                                 // layout 0
constexpr const char * program_title = "ZEB_QVinv3d_setup";

std::wstring wide(const std::string & text)
{
    const int size = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(), size);
    return result;
}

std::string narrow(const std::wstring & text)
{
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(), size, nullptr, nullptr);
    return result;
}

bool key_exists(const std::string & path)
{
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, wide(path).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    ::RegCloseKey(key);
    return true;
}

std::optional<std::string> read_value(const std::string & path, const std::string & name)
{
    const std::wstring key = wide(path), value = wide(name);
    std::wstring text(256, L'\0');
    for (int attempt = 0; attempt < 20; ++attempt) { // the value may grow between two looks
        auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS status =
            ::RegGetValueW(HKEY_CURRENT_USER, key.c_str(), value.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size);
        if (status == ERROR_SUCCESS) {
            text.resize(size / sizeof(wchar_t) - 1); // without its closing NUL
            return narrow(text);
        }
        if (status != ERROR_MORE_DATA) return std::nullopt;
        text.resize(2 * text.size());
    }
    return std::nullopt;
}

bool has_shared_layout(const std::string & application)
{
    const std::string shared = shared_branch + application, own = own_branch + application;
    if (!key_exists(shared)) return false;
    if (read_value(shared, "UseHKCU").value_or(no_setting) != no_setting) return false;
    return key_exists(shared + "\\" + program_title) || !key_exists(own + "\\" + program_title);
}

/// The branches in the order in which they are tried: that of the layout, then the other.
std::array<const char *, 2> branches(const std::string & application)
{
    if (has_shared_layout(application)) return { shared_branch, own_branch };
    return { own_branch, shared_branch };
}

std::string path_of(const char * branch, const std::string & application, const std::string & section)
{
    return branch + application + "\\" + section;
}

/// The names of a key's values; empty for a key that is not there.
std::vector<std::string> value_names(const std::string & path)
{
    std::vector<std::string> names;
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, wide(path).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return names;
    std::wstring name(16384, L'\0'); // the longest that there are, and a NUL
    for (DWORD index = 0;; ++index) {
        auto size = static_cast<DWORD>(name.size());
        if (::RegEnumValueW(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        names.push_back(narrow(name.substr(0, size)));
    }
    ::RegCloseKey(key);
    return names;
}

}

std::string read_registry(const std::string & application, const std::string & section, const std::string & name,
                          const std::string & start)
{
    for (const char * branch : branches(application))
        if (auto text = read_value(path_of(branch, application, section), name)) return *text;
    return start;
}

bool write_registry(const std::string & application, const std::string & section, const std::string & name,
                    const std::string & text)
{
    const std::wstring key = wide(path_of(branches(application)[0], application, section)), value = wide(text);
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return ::RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), wide(name).c_str(), REG_SZ, value.c_str(), size) == ERROR_SUCCESS;
}

std::vector<std::string> registry_names(const std::string & application, const std::string & section)
{
    for (const char * branch : branches(application))
        if (const std::string path = path_of(branch, application, section); key_exists(path)) return value_names(path);
    return {};
}

#endif
