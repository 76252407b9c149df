#include "fakes/case_table.h"
#include "rules/checked_setup.h"
#include "rules/field_comparison.h"
#include "support/numbers.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

const std::string dated = "X,Y,Z,Lon,Lat,Date\n1,2,3,140.57,-22.09,01/07/1990\n";
const std::string undated = "X,Y,Z,Lon,Lat\n1,2,3,140.57,-22.09\n";

std::vector<double> numbers_in(const std::string & field)
{
    std::vector<double> numbers;
    for (const std::string & part : parts_of(field, ' ')) numbers.push_back(number_in<double>(part));
    return numbers;
}

}

TEST(compare_field, given_a_definition_then_one_message_tells_a_field_that_does_not_fit_its_survey)
{
    const TemporaryFolder folder;
    for (const auto & [solver, field, has_date, is_told] : cases_of<4>("field_comparison.cases")) {
        RecordedHost given;
        ::Setup setup;
        InversionDefinition & definition = setup.definition;
        definition.data_file[0] = folder.write("data.csv", has_date == "yes" ? dated : undated);
        definition.inversion_method = static_cast<std::int32_t>(numbers_in(solver)[0]);
        definition.obs_data_types[0] = static_cast<std::int32_t>(numbers_in(solver)[1]);
        const std::vector<double> numbers = numbers_in(field);
        definition.mag_inclination = to_f32(numbers[0]), definition.mag_declination = to_f32(numbers[1]);
        definition.mag_intensity = to_f32(numbers[2]);
        compare_field(setup, given.host);
        EXPECT_EQ(given.dialogs.messages.size(), is_told == "yes" ? 1U : 0U) << solver << " " << field << " " << has_date;
    }
}

TEST(check_inversion_definitions, given_a_field_that_does_not_fit_then_the_check_says_both_and_passes)
{
    const TemporaryFolder folder;
    Checked c(folder);
    c.make("Text_mag_inclination = 53.31; Text_mag_declination = 6.66; Text_mag_intensity = 52055");
    c.record().data_file[0] = folder.write("points.dat", dated);
    std::optional<ValidatedDefinition> validated;
    EXPECT_EQ(check_inversion_definitions(c.setup, validated, c.host), Status::good);
    EXPECT_TRUE(validated.has_value());
    ASSERT_EQ(c.dialogs.messages.size(), 1U);
    const std::string & said = c.dialogs.messages[0];
    EXPECT_EQ(said.substr(0, said.find("IGRF")),
              "The magnetic field does not fit the survey: inclination 53.31, declination 6.66, "
              "intensity 52055 nT are given, but ");
    EXPECT_NE(said.find(" has inclination -53.3"), said.npos) << said;
    EXPECT_TRUE(said.ends_with(" at latitude -22.090, longitude 140.570 on 01/07/1990")) << said;
}
