#include "creation/given_creation.h"
#include "creation/run_scripts.h"
#include "creation/solver_inputs.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

struct ScriptCase {
    std::int32_t method, data_type;
    CreateMode mode;
    Texts scripts; // each the name, ": " and the lines with "/" between them
};
const ScriptCase script_cases[] = {
    { 0,
      1,
      CreateMode::all,
      { "run_inversion.bat: magsen3d magsen3d.inp/maginv3d maginv3d.inp",
        "run_maginv3d.bat: maginv3d maginv3d.inp/dmxerror mag.obs maginv3d.pre error.dat mesh",
        "run_magerror.bat: dmxerror mag.obs maginv3d.pre error.dat mesh", "run_magsen3d.bat: magsen3d magsen3d.inp" } },
    { 3,
      1,
      CreateMode::parameters,
      { "run_inversion.bat: magsen3d magsen3d.inp/maginv3d maginv3d.inp",
        "run_maginv3d.bat: maginv3d maginv3d.inp/dmxerror mag.obs maginv3d.pre error.dat mesh",
        "run_magerror.bat: dmxerror mag.obs maginv3d.pre error.dat mesh", "run_magsen3d.bat: magsen3d magsen3d.inp" } },
    { 6,
      1,
      CreateMode::all,
      { "run_inversion.bat: pfweight mag_weights.inp 8/magsen3d magsen3d.inp 8/maginv3d maginv3d.inp 8",
        "run_maginv3d.bat: pfweight mag_weights.inp 8/maginv3d maginv3d.inp 8/dmxerror mag.obs maginv3d.pre error.dat mesh",
        "run_magerror.bat: dmxerror mag.obs maginv3d.pre error.dat mesh",
        "run_magsen3d.bat: pfweight mag_weights.inp 8/magsen3d magsen3d.inp 8" } },
    { 1,
      0,
      CreateMode::all,
      { "run_inversion.bat: gzsen3d mesh grav.obs topo.dat/gzinv3d gzinv3d.inp",
        "run_gzinv3d.bat: gzinv3d gzinv3d.inp/dmxerror grav.obs gzinv3d.pre error.dat mesh",
        "run_magerror.bat: dmxerror grav.obs gzinv3d.pre error.dat mesh", "run_gzsen3d.bat: gzsen3d mesh grav.obs topo.dat" } },
    { 2,
      0,
      CreateMode::all,
      { "run_inversion.bat: gzsen3d gzsen3d.inp/gzinv3d gzinv3d.inp",
        "run_gzinv3d.bat: gzinv3d gzinv3d.inp/dmxerror grav.obs gzinv3d.pre error.dat mesh",
        "run_magerror.bat: dmxerror grav.obs gzinv3d.pre error.dat mesh", "run_gzsen3d.bat: gzsen3d gzsen3d.inp" } },
    { 5,
      0,
      CreateMode::parameters,
      { "run_inversion.bat: pfweight gz_weights.inp 8/gzsen3d gzsen3d.inp 8/gzinv3d gzinv3d.inp 8",
        "run_gzinv3d.bat: pfweight gz_weights.inp 8/gzinv3d gzinv3d.inp 8/dmxerror grav.obs gzinv3d.pre error.dat mesh",
        "run_magerror.bat: dmxerror grav.obs gzinv3d.pre error.dat mesh",
        "run_gzsen3d.bat: pfweight gz_weights.inp 8/gzsen3d gzsen3d.inp 8" } },
    { 4,
      1,
      CreateMode::all,
      { "run_inversion.bat: qvsen3d qvsen3d.inp/qvinv3d qvinv3d.inp/QVerror mag.obs qvinv3d.pre error.dat mesh",
        "run_qvinv3d.bat: qvinv3d qvinv3d.inp/QVerror mag.obs qvinv3d.pre error.dat mesh",
        "run_magerror.bat: QVerror mag.obs qvinv3d.pre error.dat mesh", "run_qvsen3d.bat: qvsen3d qvsen3d.inp",
        R"(run_qvsen3d_cluster.bat: tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe")"
        R"(/qvsen3d_cluster_controller "%~dp0")",
        "run_cluster_inversion.bat: call run_qvsen3d_cluster.bat/call run_qvinv3d.bat" } },
    // variations: data and mesh of the parent folder, or new data
    { 6,
      1,
      CreateMode::variation,
      { R"(run_maginv3d.bat: pfweight mag_weights.inp/maginv3d maginv3d.inp/dmxerror ..\mag.obs maginv3d.pre error.dat ..\mesh)",
        R"(run_magerror.bat: dmxerror ..\mag.obs maginv3d.pre error.dat ..\mesh)" } },
    { 2,
      0,
      CreateMode::variation_with_data,
      { R"(run_gzinv3d.bat: gzinv3d gzinv3d.inp/dmxerror grav.obs gzinv3d.pre error.dat ..\mesh)",
        R"(run_magerror.bat: dmxerror grav.obs gzinv3d.pre error.dat ..\mesh)" } },
};

struct ErrorCase {
    std::int32_t method;
    CreateMode mode;
    const char * line;
};
const ErrorCase error_cases[] = {
    { 5, CreateMode::variation, R"(dmxerror ..\grav.obs gzinv3d.pre error.dat ..\mesh)" },
    { 3, CreateMode::variation_with_data, R"(dmxerror mag.obs maginv3d.pre error.dat ..\mesh)" },
    { 1, CreateMode::variation, R"(dmxerror grav.obs gzinv3d.pre error.dat ..\mesh)" }, // exchanged
    { 1, CreateMode::variation_with_data, R"(dmxerror ..\grav.obs gzinv3d.pre error.dat ..\mesh)" },
    { 4, CreateMode::variation, R"(QVerror ..\grav.obs qvinv3d.pre error.dat ..\mesh)" },
    { 4, CreateMode::variation_with_data, R"(QVerror ..\grav.obs qvinv3d.pre error.dat ..\mesh)" },
};

struct RockCase {
    std::int32_t method, data_type, application;
    bool reference, bounds;
    const char * lines; // before the sensitivity step
};
const RockCase rock_cases[] = {
    { 4, 0, 0, true, true,
      "QVextract mesh low.bnd grav3d_bounds.den 1 10 1 20 1 30 -Bounds rock.csv/"
      "QVextract mesh ref.sus grav3d_ref.den 1 10 1 20 1 30 -Ref rock.csv/" },
    { 3, 1, 2, true, false, "DMXextract mesh ref.sus mag3d_ref.sus 1 10 1 20 1 30 -Ref rock.csv/" },
    { 1, 0, 0, false, true, "DMXextract mesh low.bnd grav3d_bounds.den 1 10 1 20 1 30 -Bounds rock.csv/" },
    { 4, 1, 0, false, true, "QVextract mesh low.bnd mag3d_bounds.sus 1 10 1 20 1 30 -Bounds rock.csv/" },
    { 2, 0, 1, true, true, "" }, // neither the bounds nor the reference
};

/// All scripts as texts; the weight-program input is what sets the threads, as in a run.
Texts scripts_of(const GivenCreation & given)
{
    const TemporaryFolder folder;
    Creation creation = given.creation(folder.path() + "\\");
    write_sensitivity_inputs(creation);
    Texts texts;
    for (const Script & script : run_scripts(creation)) texts.push_back(script.name + ": " + joined(script.lines));
    return texts;
}

}

TEST(run_scripts, given_each_method_then_the_whole_scripts)
{
    for (const ScriptCase & row : script_cases) {
        SCOPED_TRACE(row.method);
        GivenCreation given(row.method, row.data_type);
        given.mode = row.mode;
        EXPECT_EQ(scripts_of(given), row.scripts);
    }
}

TEST(run_scripts, given_a_variation_then_the_error_report_reads_its_data)
{
    for (const ErrorCase & row : error_cases) {
        SCOPED_TRACE(row.method);
        GivenCreation given(row.method, 0);
        given.mode = row.mode;
        EXPECT_EQ(error_line(given.creation()), row.line);
    }
}

TEST(run_scripts, given_a_rock_property_table_then_its_lines_come_first)
{
    for (const RockCase & row : rock_cases) {
        SCOPED_TRACE(row.method);
        GivenCreation given(row.method, row.data_type);
        const std::string without = joined(run_scripts(given.creation())[0].lines);
        given.in_use = { .rock_properties = true, .reference = row.reference, .bounds = row.bounds };
        given.definition.rock_property_application = row.application;
        EXPECT_EQ(joined(run_scripts(given.creation())[0].lines), row.lines + without);
    }
}

TEST(run_scripts, given_a_model_file_then_only_the_own_solver_runs_without_its_fast_form)
{
    GivenCreation own(4, 1), other(3, 1);
    own.in_use.model_file = other.in_use.model_file = true;
    const std::string line = "qvinv3d qvinv3d.inp NOFAST/QVerror mag.obs qvinv3d.pre error.dat mesh";
    EXPECT_EQ(scripts_of(own)[0], "run_inversion.bat: qvsen3d qvsen3d.inp/" + line);
    EXPECT_EQ(scripts_of(own)[1], "run_qvinv3d.bat: " + line);
    EXPECT_EQ(scripts_of(other)[0], "run_inversion.bat: magsen3d magsen3d.inp/maginv3d maginv3d.inp");
}

TEST(run_scripts, given_no_topography_then_the_first_gravity_solver_is_not_handed_one)
{
    GivenCreation given(1, 0);
    given.definition.topo_type = 1;
    EXPECT_EQ(scripts_of(given)[3], "run_gzsen3d.bat: gzsen3d mesh grav.obs");
}

TEST(run_scripts, given_a_run_then_the_files_lie_in_the_folder)
{
    const TemporaryFolder folder;
    write_run_scripts(GivenCreation(4, 0).creation(folder.path() + "\\"));
    EXPECT_EQ(folder_names(folder), (Texts{ "run_cluster_inversion.bat", "run_inversion.bat", "run_magerror.bat",
                                            "run_qvinv3d.bat", "run_qvsen3d.bat", "run_qvsen3d_cluster.bat" }));
    EXPECT_EQ(folder.read("run_cluster_inversion.bat"), "call run_qvsen3d_cluster.bat\r\ncall run_qvinv3d.bat\r\n");
}
