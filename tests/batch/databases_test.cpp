#include "batch/batch_run.h"

#include <gtest/gtest.h>

namespace {

const std::filesystem::path surveys = std::filesystem::path(TEST_DATA_FOLDER "/../data/surveys");

/// The observed data that a definition with a file under the given name makes of it.
std::string observed(const std::string & area, const std::string & columns, const std::string & file, const std::string & name)
{
    const TinySurvey survey("Inversion method: 6; Topo type: 1; Z Range: -1000 1000 1000 2 1 0; " + area +
                            "; Obs data definitions: " + columns + "; Obs data file: " + name);
    survey.folder.write(name, bytes_of(surveys / file));
    if (name.ends_with(".dfn")) survey.folder.write("data of it.dat", bytes_of((surveys / file).replace_extension("dat")));
    const BatchRun run = create(survey);
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.errors.ends_with("message: Output complete\n")) << run.errors;
    return survey.folder.read("out\\mag.obs");
}

}

TEST(databases, given_a_survey_as_a_database_and_in_plain_columns_then_the_same_bytes_of_observed_data)
{
    for (const auto & [area, database, columns, plain, plain_columns, count] : cases_of<6>("databases.cases")) {
        SCOPED_TRACE(database);
        const std::string name = "data of it" + std::filesystem::path(database).extension().string();
        const std::string data = observed(area, columns, database, name);
        EXPECT_NE(data.find("\r\n " + count + " \r\n"), data.npos) << data.substr(0, 80);
        EXPECT_EQ(data, observed(area, plain_columns, plain, "plain.txt"));
    }
}
