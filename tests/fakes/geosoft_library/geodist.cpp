// A stand-in for the library that opens sessions.

#include <cstdint>
#include <string_view>

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C"
#endif

EXPORTED std::int32_t Std_Create_GEO(const char * client, const char * version)
{
    static std::int32_t sessions = 0;
    return std::string_view(client).empty() || std::string_view(version) != "V1.0" ? 0 : 70 + ++sessions;
}
