#include "creation/given_creation.h"
#include "creation/run_scripts.h"
#include "creation/solver_inputs.h"

#include <gtest/gtest.h>

namespace {

/// The scripts with "/" between their lines; the error report alone is the last line of the inversion's.
struct ScriptCase {
    std::int32_t method, data_type;
    CreateMode mode;
    std::string whole, inversion, sensitivity; // empty: there is no such script
};
const ScriptCase script_cases[] = {
    { 3, 1, CreateMode::parameters, "magsen3d magsen3d.inp/maginv3d maginv3d.inp",
      "maginv3d maginv3d.inp/dmxerror mag.obs maginv3d.pre error.dat mesh", "magsen3d magsen3d.inp" },
    { 1, 0, CreateMode::all, "gzsen3d mesh grav.obs topo.dat/gzinv3d gzinv3d.inp",
      "gzinv3d gzinv3d.inp/dmxerror grav.obs gzinv3d.pre error.dat mesh", "gzsen3d mesh grav.obs topo.dat" },
    { 5, 0, CreateMode::all, "pfweight gz_weights.inp 8/gzsen3d gzsen3d.inp 8/gzinv3d gzinv3d.inp 8",
      "pfweight gz_weights.inp 8/gzinv3d gzinv3d.inp 8/dmxerror grav.obs gzinv3d.pre error.dat mesh",
      "pfweight gz_weights.inp 8/gzsen3d gzsen3d.inp 8" },
    // variations: data and mesh of the parent folder, or new data
    { 6, 1, CreateMode::variation, "",
      R"(pfweight mag_weights.inp/maginv3d maginv3d.inp/dmxerror ..\mag.obs maginv3d.pre error.dat ..\mesh)", "" },
    { 3, 1, CreateMode::variation_with_data, "", R"(maginv3d maginv3d.inp/dmxerror mag.obs maginv3d.pre error.dat ..\mesh)", "" },
    { 2, 0, CreateMode::variation, "", R"(gzinv3d gzinv3d.inp/dmxerror ..\grav.obs gzinv3d.pre error.dat ..\mesh)", "" },
    { 1, 0, CreateMode::variation, "", R"(gzinv3d gzinv3d.inp/dmxerror grav.obs gzinv3d.pre error.dat ..\mesh)", "" },
    { 1, 0, CreateMode::variation_with_data, "", R"(gzinv3d gzinv3d.inp/dmxerror ..\grav.obs gzinv3d.pre error.dat ..\mesh)",
      "" },
    { 4, 0, CreateMode::variation_with_data, "", R"(qvinv3d qvinv3d.inp/QVerror ..\grav.obs qvinv3d.pre error.dat ..\mesh)", "" },
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

/// The lines of one script; the weight-program input is what sets the threads, as in a run.
std::string script(const GivenCreation & given, const std::string & name)
{
    const TemporaryFolder folder;
    Creation creation = given.creation(folder.path() + "\\");
    write_sensitivity_inputs(creation);
    write_run_scripts(creation);
    std::string text = folder.read(name);
    for (std::size_t end = 0; (end = text.find("\r\n", end)) != std::string::npos;)
        text.replace(end, 2, end + 2 == text.size() ? "" : "/");
    return text;
}

}

TEST(run_scripts, given_each_method_and_mode_then_the_whole_scripts)
{
    for (const ScriptCase & row : script_cases) {
        SCOPED_TRACE(row.inversion);
        GivenCreation given(row.method, row.data_type);
        given.mode = row.mode;
        const std::string family = row.method == 4 ? "qv" : row.data_type == 0 ? "gz" : "mag";
        EXPECT_EQ(script(given, "run_inversion.bat"), row.whole);
        EXPECT_EQ(script(given, "run_" + family + "inv3d.bat"), row.inversion);
        EXPECT_EQ(script(given, "run_magerror.bat"), row.inversion.substr(row.inversion.rfind('/') + 1));
        EXPECT_EQ(script(given, "run_" + family + "sen3d.bat"), row.sensitivity);
    }
}

TEST(run_scripts, given_a_rock_property_table_then_its_lines_come_first)
{
    for (const RockCase & row : rock_cases) {
        SCOPED_TRACE(row.method);
        GivenCreation given(row.method, row.data_type);
        const std::string without = script(given, "run_inversion.bat");
        given.in_use = { .rock_properties = true, .reference = row.reference, .bounds = row.bounds };
        given.definition.rock_property_application = row.application;
        EXPECT_EQ(script(given, "run_inversion.bat"), row.lines + without);
    }
}

TEST(run_scripts, given_no_topography_then_the_first_gravity_solver_is_not_handed_one)
{
    GivenCreation given(1, 0);
    given.definition.topo_type = 1;
    EXPECT_EQ(script(given, "run_gzsen3d.bat"), "gzsen3d mesh grav.obs");
}
