#include "creation/top_scripts.h"

#include "creation/tile_scripts.h"
#include "creation/tile_solver.h"
#include "support/numbers.h"

namespace {

/// Gravity or magnetic by the first data type, which these scripts look at for every method.
FileClass class_of_first_type(const Creation & creation)
{
    const DataClass data_class = class_of_data_type(creation.definition.obs_data_types[0]);
    return data_class == DataClass::magnetic ? FileClass::magnetic : FileClass::gravity;
}

/// The own solver's files, for every method.
std::string last_line(const Creation & creation)
{
    return std::string("QVerror ") + class_files(class_of_first_type(creation)).observed + " qvinv3d.pre error.dat mesh";
}

}

TopScripts start_top_scripts(const Creation & creation)
{
    const std::string model = tile_class(class_of_first_type(creation)).model;
    return {
        .iter_all = {},
        .insert_all = {
            "",
            "rem Clean up any previously merged data files",
            "",
            "@if exist qvinv3d_weights.dat del qvinv3d_weights.dat",
            "@if exist qvinv3d.old del qvinv3d.old",
            "@if exist qvinv3d" + model + " ren qvinv3d" + model + " qvinv3d.old",
            "@if exist refined" + model + " copy refined" + model + " qvinv3d" + model,
            "@if exist error.dat del error.dat",
            "",
        },
    };
}

void add_tile(TopScripts & scripts, const Creation & creation, Tile tile, std::int32_t reading_count)
{
    const std::string prefix = tile_line_prefix(creation.tiles(), tile, reading_count, creation.definition.tile_min_points);
    append(scripts.iter_all, {
                                 "rem Num data " + general_text(reading_count),
                                 prefix + "call " + tile_name(tile) + ".bat",
                             });
    append(scripts.insert_all, {
                                   "rem Boundaries: " + own_limits(creation, tile),
                                   prefix + "cd " + tile_name(tile),
                                   prefix + insert_line(creation, tile),
                                   prefix + "cd ..",
                                   "",
                               });
}

void end_tile_group(TopScripts & scripts)
{
    scripts.iter_all.emplace_back();
    scripts.insert_all.emplace_back();
}

void write_top_scripts(TopScripts & scripts, const Creation & creation)
{
    scripts.iter_all.push_back(last_line(creation));
    scripts.insert_all.push_back(last_line(creation));
    write_lines(creation.folder + "insert_all.bat", scripts.insert_all);
    write_lines(creation.folder + "iter_all.bat", scripts.iter_all);
}
