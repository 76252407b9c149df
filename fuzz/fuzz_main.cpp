#include "fuzz/readers.h"
#include "fuzz/seeds.h"
#include "fuzz/surroundings.h"
#include "support/fault.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>

// The fuzz program: --reader=NAME and the options of libFuzzer. --list prints the names of the readers, --seeds=FOLDER writes the
// seeds of the reader.

extern "C" {
int LLVMFuzzerInitialize(int * argc, char *** argv);
int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size);
void * __real_mmap(void * at, std::size_t size, int protection, int flags, int file, off_t offset); // NOLINT(bugprone-*)
void * __wrap_mmap(void * at, std::size_t size, int protection, int flags, int file, off_t offset); // NOLINT(bugprone-*)
}

namespace {

const FuzzedReader * chosen = nullptr;

std::string option(int count, char ** arguments, std::string_view name)
{
    for (int i = 1; i < count; ++i)
        if (std::string_view(arguments[i]).starts_with(name)) return arguments[i] + name.size();
    return "";
}

bool has_option(int count, char ** arguments, const char * name)
{
    return std::any_of(arguments, arguments + count, [&](const char * argument) { return std::strcmp(argument, name) == 0; });
}

}

void * __wrap_mmap(void * at, std::size_t size, int protection, int flags, int file, off_t offset)
{
    return file >= 0 ? MAP_FAILED : __real_mmap(at, size, protection, flags, file, offset);
}

int LLVMFuzzerInitialize(int * argc, char *** argv)
{
    if (has_option(*argc, *argv, "--list")) {
        for (const FuzzedReader & reader : fuzzed_readers()) std::puts(reader.name);
        std::exit(0);
    }
    const std::string name = option(*argc, *argv, "--reader=");
    for (const FuzzedReader & reader : fuzzed_readers())
        if (name == reader.name) chosen = &reader;
    if (chosen == nullptr) {
        std::fprintf(stderr, "no such reader: %s\n", name.c_str());
        std::exit(2);
    }
    if (const std::string folder = option(*argc, *argv, "--seeds="); !folder.empty()) {
        write_seeds(name, folder);
        std::exit(0);
    }
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size)
{
    try {
        chosen->read({ { reinterpret_cast<const char *>(data), size } });
    } catch (const Fault &) { // a good answer
    } catch (const Find & find) {
        std::fprintf(stderr, "find: %s\n", find.what.c_str());
        std::abort();
    }
    return 0;
}
