#include "fuzz/readers.h"
#include "fuzz/seeds.h"
#include "fuzz/surroundings.h"
#include "support/fault.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace fs = std::filesystem;

namespace {

/// Any exception but these two is the test's failure.
void replay(const FuzzedReader & reader, const std::string & input)
{
    try {
        reader.read({ input });
    } catch (const Fault &) { // a good answer
    } catch (const Find & find) {
        ADD_FAILURE() << find.what;
    }
}

}

TEST(fuzzed_readers, given_their_seeds_then_each_is_read_or_refused_in_words)
{
    for (const FuzzedReader & reader : fuzzed_readers()) {
        const std::vector<std::string> seeds = seeds_of(reader.name);
        EXPECT_FALSE(seeds.empty()) << reader.name;
        for (const std::string & seed : seeds) {
            SCOPED_TRACE(std::string(reader.name) + ": " + seed.substr(0, 80));
            replay(reader, seed);
        }
    }
}

TEST(fuzzed_readers, given_what_was_once_a_find_then_it_is_read_or_refused_in_words)
{
    for (const FuzzedReader & reader : fuzzed_readers()) {
        const fs::path folder = fs::path(FINDS_FOLDER) / reader.name;
        if (!fs::is_directory(folder)) continue;
        for (const auto & entry : fs::directory_iterator(folder)) {
            SCOPED_TRACE(entry.path().string());
            std::ostringstream content;
            content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
            replay(reader, content.str());
        }
    }
}
