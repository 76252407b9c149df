#include "fuzz/seeds.h"

#include "fakes/case_table.h"
#include "fakes/temporary_folder.h"
#include "fuzz/readers.h"
#include "grid/grid_files.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

using Seeds = std::vector<std::string>;

constexpr std::size_t longest_seed = 4000; // of a larger file the beginning

/// The files of a folder and those below whose names end so.
Seeds files(const std::string & folder, const std::string & ending)
{
    std::vector<fs::path> found;
    for (const auto & entry : fs::recursive_directory_iterator(fs::path(PROJECT_FOLDER) / folder))
        if (entry.is_regular_file() && entry.path().filename().string().ends_with(ending)) found.push_back(entry.path());
    std::ranges::sort(found);
    Seeds seeds;
    for (const fs::path & file : found) seeds.push_back(bytes_of(file).substr(0, longest_seed));
    return seeds;
}

/// A column, from 0, of a table of cases, whose path is that below the tests.
template <std::size_t columns>
Seeds cases(const std::string & table, std::size_t column, bool lines = false)
{
    Seeds seeds;
    for (const auto & fields : cases_of<columns>(table)) seeds.push_back(lines ? file_of(fields[column]) : fields[column]);
    return seeds;
}

Seeds joined(std::initializer_list<Seeds> parts)
{
    Seeds all;
    for (const Seeds & part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// Each text behind each of the choices.
Seeds behind(const Seeds & choices, const Seeds & texts)
{
    Seeds seeds;
    for (const std::string & choice : choices)
        for (const std::string & text : texts) seeds.push_back(choice + text);
    return seeds;
}

std::string bytes(std::initializer_list<int> values)
{
    std::string text;
    for (const int value : values) text += static_cast<char>(value);
    return text;
}

Seeds definitions()
{
    const Seeds all = joined({ files("examples", ".inp"), files("tests/batch/tiny", ".inp"), files("tests/definition", ".inp"),
                               files("tests/worked/tiles/input", ".inp") });
    return joined({ behind({ bytes({ 0 }) }, all), behind({ bytes({ 1 }), bytes({ 4 }) }, { all.front() }) });
}

/// Boxes of the form by their number; most hold a number.
Seeds typed_texts()
{
    Seeds seeds;
    for (int first = 0; first < 256; first += 16) {
        std::string seed;
        for (int box = first; box < first + 16; ++box) seed += bytes({ box, 0 }) + "1,2 4\n";
        seeds.push_back(seed);
    }
    return seeds;
}

Seeds points()
{
    const Seeds choices = {
        bytes({ 2, 3, 4, 5, 0, 0, 0, 0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 15, 1 }), // x y z value
        bytes({ 3, 4, 5, 6, 7, 0, 2, 0, 0, 3, 1, 1, 2, 1, 1, 1, 1, 0, 2 }),  // a line in front, an interval, windows, transform
        bytes({ 2, 3, 4, 0, 0, 0, 0, 2, 5, 0, 2, 0, 0, 0, 0, 0, 0, 40, 0 }), // every second, categories and texts
    };
    return behind(choices, joined({ files("examples", ".csv"), files("examples", ".xyz"), files("tests/batch/tiny", ".csv"),
                                    files("tests/worked/tiles/input", ".dat"), cases<4>("data/location_reader.cases", 2) }));
}

Seeds columns()
{
    return behind({ bytes({ 0, 3, 2 }), bytes({ 1, 2, 0 }) },
                  joined({ files("examples", ".csv"), files("tests/batch/tiny", ".csv"), files("examples", ".xyz"),
                           cases<9>("rules/data_preview.cases", 2, true), cases<4>("data/location_reader.cases", 2) }));
}

/// How the points are read, and how the file is shown in the form.
const Seeds database_choices = {
    bytes({ 2, 3, 4, 5, 0, 0, 0, 0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 }), // x y z value
    bytes({ 3, 4, 5, 6, 7, 0, 2, 0, 0, 3, 1, 1, 2, 1, 1, 1, 1, 1, 0, 3, 2 }), // a line in front, an interval, windows, transform
    bytes({ 2, 3, 0, 0, 0, 0, 0, 4, 5, 4, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 }), // every second, categories and texts
};

Seeds xyz_databases()
{
    return behind(database_choices,
                  joined({ files("tests/data/surveys", ".xyz"), cases<5>("data/database/xyz_database.cases", 0) }));
}

Seeds aseg_databases()
{
    Seeds pairs;
    const Seeds definitions = files("tests/data/surveys", ".dfn"), data = files("tests/data/surveys", ".dat");
    for (std::size_t i = 0; i < definitions.size(); ++i) pairs.push_back(definitions[i] + pair_mark + data.at(i).substr(0, 1500));
    for (const auto & fields : cases_of<4>("data/database/aseg_database.cases"))
        pairs.push_back(file_of(fields[0]) + pair_mark + fields[1]);
    return behind(database_choices, pairs);
}

Seeds meshes()
{
    return joined({ files("tests", ".msh"), files("tests/worked", "mesh"), files("tests/model", ".txt"),
                    cases<2>("model/mesh_reader.cases", 0), cases<2>("model/mesh_reader.cases", 0, true) });
}

Seeds models()
{
    const Seeds choices = { bytes({ 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 1, 7, 1 }), bytes({ 1, 0, 1, 0, 1, 1, 0, 1, 2, 1, 0, 3, 2 }),
                            bytes({ 1, 0, 1, 0, 0, 0, 0, 0, 3, 2, 0, 1, 0 }),
                            bytes({ 2, 3, 3, 255, 0, 0, 0, 5, 5, 3, 1, 9, 1 }) };
    return behind(choices, joined({ cases<5>("model/model_reader.cases", 3),
                                    files("tests/worked/tiles/input", ".sus"),
                                    { "UBC\1" + little_endian(1.0F, 2.0F, -1e32F, 4.0F), "(1,2)\n(3,4)\n(5,6)\n(7,8)\n" } }));
}

const std::string no_choice(4, '\0');

Seeds geosoft_grids()
{
    return behind({ no_choice, bytes({ 1, 1, 0, 0 }) },
                  joined({ { geosoft_header(4, 2) + geosoft_values, geosoft_header(4, 2, -1) + geosoft_values,
                             geosoft_header(1, 0, 1, 5, 2) + "abcdef", geosoft_packed() },
                           { bytes_of(fs::path(PROJECT_FOLDER) / "tests/grid/data/om_compress.grd") } }));
}

Seeds gxf_grids()
{
    const std::string plain = gxf("4 5 6\n1 2 *\n", "#DUMMY\n*\n"), turned = gxf("1 4 2 5 * 6\n", "#SENSE\n2\n#DUMMY\n*\n"),
                      packed = gxf("%)%*%+\n%&%'!!\n", "#GTYPE\n2\n#TRANSFORM\n0.5 1\n"),
                      repeated = gxf("\"\"%(%*\"\"%(!!", "#GTYPE\n2\n");
    return behind({ no_choice, bytes({ 1, 1, 0, 0 }) },
                  joined({ files("tests/grid/data", ".gxf"), { plain, turned, packed, repeated } }));
}

Seeds registrations()
{
    const std::string
        world = "10\n0\n0\n-20\n100\n220\n",
        tab = "!table\n!version 300\nDefinition Table\n  File \"picture.png\"\n  Type \"RASTER\"\n"
              "  (95,230) (0,0) Label \"Pt 1\",\n  (125,190) (3,2) Label \"Pt 2\",\n  (95,190) (0,2) Label \"Pt 3\"\n";
    return joined({ behind({ bytes({ 0, 2, 1 }), bytes({ 2, 2, 1 }) }, { world }), behind({ bytes({ 5, 2, 1 }) }, { tab }),
                    behind({ bytes({ 3, 2, 1 }), bytes({ 4, 2, 1 }) }, { ers_header }) });
}

Seeds transforms()
{
    return joined({ cases<4>("utilities/transform_file.cases", 0),
                    { " 30 1 2\r\n 500 1 600 700 800\r\n 500 1 600 700 800\r\n", "30\n1\n1 2\n" } });
}

Seeds settings()
{
    const std::string deep(100000, '['); // more calls within calls than a stack has room for
    return { R"({"Brindlewood":{"ZEB_QVinv3d_setup":{"folder":"C:\\data","MRU1":"a.inp"}}})",
             R"({"Brindlewood":{}})",
             R"({"Brindlewood":{"other":{"a":[1,2.5e3,null,true,{"b":"\u00e9"}]}},"more":[]})",
             "{",
             "",
             R"({"Brindlewood":{"ZEB_QVinv3d_setup":{"a":)" + deep + std::string(deep.size(), ']') + "}}}" };
}

Seeds places()
{
    Seeds seeds = { "2025\n151 12 36.36 E\n33 52 s\n50\n", "1/7/2003\n-179.999999999\n89 59 59.9999\n0\n" };
    for (const auto & fields : cases_of<5>("utilities/dms_read.cases"))
        seeds.push_back("2025\n" + fields[0] + "\n" + fields[0] + "\n0\n");
    for (const auto & fields : cases_of<3>("utilities/igrf_dates.cases")) seeds.push_back(fields[0] + "\n10\n20 30 S\n100\n");
    return seeds;
}

Seeds numbers()
{
    const Seeds texts = { "0.00000E+00",      "0.0##;(0.00)", " 12.50 ", "-1e-5",  "+.5E+3x",
                          "9007199254740993", "1e308",        "#.#",     "00000.5" };
    return behind({ little_endian(0.0, '\0'), little_endian(-1234.5678, '\4'), little_endian(9.9999995e-5, '\2') }, texts);
}

Seeds tokens()
{
    return behind({ ",\5", "=\1" }, { "a b,c;d'e", "\"a b\" , 'c", "C:\\data\\..\\osborne.inp", "key=\"a b\" other=(1,2) c=d",
                                      "16,8,4,2,1", "..\\x\\", " \t ", "\"" });
}

Seeds line_texts()
{
    return joined({ cases<4>("data/location_reader.cases", 2),
                    files("tests/batch/tiny", ".csv"),
                    { "1 2\r\n3\t4\n\n\r5", "a\1b\1\1c\nd" } });
}

/// The first bytes of HDF5 say where the file ends.
Seeds netcdf_headers() { return { netcdf(), "CDF\2" + std::string(12, '\0'), "\x89HDF\r\n\x1a\n" + std::string(90, '\2') }; }

struct SeedSource {
    const char * reader;
    Seeds (*seeds)();
};

constexpr SeedSource sources[] = {
    { "definition", definitions },
    { "typed_texts", typed_texts },
    { "points", points },
    { "columns", columns },
    { "xyz_database", xyz_databases },
    { "aseg_database", aseg_databases },
    { "mesh", meshes },
    { "model", models },
    { "geosoft_grid", geosoft_grids },
    { "gxf_grid", gxf_grids },
    { "netcdf_header", netcdf_headers },
    { "registration", registrations },
    { "transform", transforms },
    { "settings", settings },
    { "place", places },
    { "numbers", numbers },
    { "tokens", tokens },
    { "lines", line_texts },
};

}

std::vector<std::string> seeds_of(const std::string & reader)
{
    const auto * const source = std::ranges::find(sources, reader, &SeedSource::reader);
    return source == std::end(sources) ? Seeds() : source->seeds();
}

void write_seeds(const std::string & reader, const std::string & folder)
{
    int number = 0;
    for (const std::string & seed : seeds_of(reader))
        std::ofstream(fs::path(folder) / ("seed_" + std::to_string(++number)), std::ios::binary) << seed;
}
