#include "batch/batch_run.h"
#include "fakes/tiny_survey.h"

#include <gtest/gtest.h>
#include <set>

namespace {

std::set<std::string> files_of(const TemporaryFolder & folder, const std::string & name)
{
    std::set<std::string> files;
    for (const auto & entry : std::filesystem::directory_iterator(host_path(folder.file(name))))
        files.insert(entry.path().filename().string());
    return files;
}

std::set<std::string> with(std::set<std::string> files, const std::set<std::string> & more)
{
    files.insert(more.begin(), more.end());
    return files;
}

}

struct MethodCase {
    const char * method;
    std::set<std::string> inputs;  ///< solver inputs and scripts of mode all
    std::set<std::string> reduced; ///< those of a variation
};

TEST(create, given_each_method_and_mode_then_just_the_files_of_it_are_written)
{
    const std::set<std::string> definition = { "inversion.inp", "out.inp" };
    const MethodCase cases[] = {
        { "0",
          { "magsen3d.inp", "maginv3d.inp", "run_inversion.bat", "run_maginv3d.bat", "run_magerror.bat", "run_magsen3d.bat" },
          { "maginv3d.inp", "run_maginv3d.bat", "run_magerror.bat" } },
        { "3",
          { "magsen3d.inp", "maginv3d.inp", "run_inversion.bat", "run_maginv3d.bat", "run_magerror.bat", "run_magsen3d.bat" },
          { "maginv3d.inp", "run_maginv3d.bat", "run_magerror.bat" } },
        { "6",
          { "mag_weights.inp", "magsen3d.inp", "maginv3d.inp", "run_inversion.bat", "run_maginv3d.bat", "run_magerror.bat",
            "run_magsen3d.bat" },
          { "maginv3d.inp", "run_maginv3d.bat", "run_magerror.bat" } },
        { "1",
          { "gzinv3d.inp", "run_inversion.bat", "run_gzinv3d.bat", "run_magerror.bat", "run_gzsen3d.bat" },
          { "gzinv3d.inp", "run_gzinv3d.bat", "run_magerror.bat" } },
        { "2",
          { "gzsen3d.inp", "gzinv3d.inp", "run_inversion.bat", "run_gzinv3d.bat", "run_magerror.bat", "run_gzsen3d.bat" },
          { "gzinv3d.inp", "run_gzinv3d.bat", "run_magerror.bat" } },
        { "5",
          { "gz_weights.inp", "gzsen3d.inp", "gzinv3d.inp", "run_inversion.bat", "run_gzinv3d.bat", "run_magerror.bat",
            "run_gzsen3d.bat" },
          { "gzinv3d.inp", "run_gzinv3d.bat", "run_magerror.bat" } },
        { "4",
          { "qvsen3d.inp", "qvinv3d.inp", "run_inversion.bat", "run_qvinv3d.bat", "run_magerror.bat", "run_qvsen3d.bat",
            "run_qvsen3d_cluster.bat", "run_cluster_inversion.bat" },
          { "qvinv3d.inp", "run_qvinv3d.bat", "run_magerror.bat" } },
    };
    for (const MethodCase & c : cases) {
        const bool gravity = std::string("125").find(c.method) != std::string::npos;
        const std::string data = gravity ? "grav.obs" : "mag.obs";
        const std::pair<const char *, std::set<std::string>> modes[] = {
            { "all", with(with(definition, c.inputs), { "mesh", gravity ? "model.den" : "model.sus", data, "topo.dat" }) },
            { "parameters", with(definition, c.inputs) },
            { "variation", with(definition, c.reduced) },
            { "variation-data", with(with(definition, c.reduced), { data }) },
        };
        for (const auto & [mode, files] : modes) {
            SCOPED_TRACE(std::string(c.method) + " " + mode);
            const std::map<std::string, std::string> changes = { { "Inversion method", c.method } };
            const TinySurvey survey(changes);
            const BatchRun run = run_batch(
                { "create", host_file(survey.folder, "tiny.inp"), "--output", host_file(survey.folder, "out"), "--mode", mode });
            EXPECT_EQ(run.status, 0) << run.errors;
            EXPECT_EQ(run.errors, "message: Output complete\n");
            EXPECT_EQ(files_of(survey.folder, "out"), files);
        }
    }
}

TEST(create, given_the_own_solver_then_every_phase_reports_its_line)
{
    const TinySurvey survey;
    const BatchRun run =
        run_batch({ "create", host_file(survey.folder, "tiny.inp"), "--output", host_file(survey.folder, "out") });
    EXPECT_EQ(run.output, "Checking inversion definitions\n"
                          "Creating inversion directory\n"
                          "Saving the inversion definitions\n"
                          "Creating inversion parameter files\n"
                          "Creating inversion batch file\n"
                          "Gridding topo data \n"
                          "Creating inversion mesh files\n"
                          "Writing inversion model file\n"
                          "Reading inversion data file\n"
                          "Number of data read from file: 16\n"
                          "Ensuring reading elevations are consistent with topo\n"
                          "Writing observed data for use in the inversion\n"
                          "Writing topo data for use in the inversion\n"
                          "Inversion processing complete\n");
    EXPECT_EQ(survey.folder.read("out\\inversion.inp"), survey.folder.read("out\\out.inp"));
}

TEST(create, given_line_names_then_the_reference_copy_carries_them)
{
    const TinySurvey survey(
        { { "Inversion method", "3" }, { "Obs data definitions", "2 0 1 5 1 2 3 4 0 0 0" }, { "Topo type", "1" } });
    const BatchRun run =
        run_batch({ "create", host_file(survey.folder, "tiny.inp"), "--output", host_file(survey.folder, "out") });
    EXPECT_EQ(run.status, 0) << run.errors;
    const std::string reference = survey.folder.read("out\\mag.ref");
    EXPECT_NE(reference.find("\r\n     1050.0000     2050.0000      330.0000        0.0000        1.0000            L0\r\n"),
              std::string::npos)
        << reference;
    EXPECT_FALSE(survey.folder.has("out\\topo.dat"));
}

TEST(create, given_paths_with_blanks_and_umlauts_then_it_works_and_a_second_run_gives_the_same_bytes)
{
    const TemporaryFolder folder;
    const std::string place = "Messung S\xC3\xBC"
                              "d 1";
    std::filesystem::create_directories(host_path(folder.file(place)));
    const TinySurvey survey;
    for (const char * name : { "data.csv", "ground.xyz" }) folder.write(place + "\\\xC3\xA4 " + name, survey.folder.read(name));
    folder.write(place + "\\set up.inp", TinySurvey::definition({ { "Obs data file", "\xC3\xA4 data.csv" },
                                                                  { "Topo data file", ".\\\xC3\xA4 ground.xyz" } }));
    const std::vector<std::string> arguments = { "create", host_file(folder, place + "\\set up.inp"), "--output",
                                                 host_file(folder, place + "\\new \xC3\xB6\\out") };
    ASSERT_EQ(run_batch(arguments).status, 0);
    const std::string data = folder.read(place + "\\new \xC3\xB6\\out\\mag.obs");
    EXPECT_NE(data, "");
    ASSERT_EQ(run_batch(arguments).status, 0);
    EXPECT_EQ(folder.read(place + "\\new \xC3\xB6\\out\\mag.obs"), data);
}
