#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "rules/survey_place.h"
#include "support/numbers.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

std::string projection(const std::string & zone)
{
    if (zone != "54") return zone;
    return "PROJCS[\"UTM 54S\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
           "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
           "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",10000000.0],PARAMETER[\"Central_Meridian\",141.0],"
           "PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";
}

std::string words_of(const std::optional<SurveyPlace> & place)
{
    if (!place) return "unknown";
    const auto number = [](double value) { return general_text(std::round(1e6 * value) / 1e6 + 0.0); };
    std::string words = number(place->latitude) + " " + number(place->longitude);
    if (place->elevation) words += " " + number(*place->elevation);
    if (place->date) words += " " + igrf_date_text(*place->date);
    return words;
}

Setup setup_of(const std::string & file)
{
    ::Setup setup;
    InversionDefinition & definition = setup.definition;
    definition.data_file[0] = file;
    definition.data_name_line[0] = 1;
    definition.sensor_height_type = 1;
    return setup;
}

}

TEST(survey_place, given_what_a_file_says_then_only_that_is_known)
{
    const TemporaryFolder folder;
    RecordedHost given;
    for (const auto & [file, lines, name_line, z_column, zone, expected] : cases_of<6>("survey_place.cases")) {
        ::Setup setup = setup_of(folder.write(file, file_of(lines)));
        InversionDefinition & definition = setup.definition;
        zone.empty() ? delete_file(folder.file("data.prj")) : void(folder.write("data.prj", projection(zone)));
        const std::int32_t z = number_in(z_column);
        definition.data_name_line[0] = number_in(name_line);
        definition.data_kind[0] = file.ends_with(".xyz") ? 2 : 0;
        definition.data_x_column[0] = z + 1, definition.data_y_column[0] = z + 2, definition.data_z_column[0] = z;
        definition.coordinate_transform.x_origin = 1e6; // of the mesh, which does not move the survey
        definition.coordinate_transform.in_use = true;
        for (const SurveyLook look : { SurveyLook::whole, SurveyLook::beginning })
            EXPECT_EQ(words_of(survey_place(setup, look, given.host)), expected) << lines;
    }
    EXPECT_EQ(words_of(survey_place(setup_of(folder.file("gone")), SurveyLook::whole, given.host)), "unknown");
    EXPECT_EQ(given.dialogs.messages, std::vector<std::string>());
}

TEST(survey_place, given_a_large_file_then_a_look_at_its_beginning_is_content_with_that)
{
    const TemporaryFolder folder;
    RecordedHost given;
    std::string text = "Z Lat Lon Date\n";
    for (int i = 0; i <= 10000; ++i)
        text += "1 " + general_text(-22 + i / 10000.0) + " 140 " + (i < 10000 ? "20200101" : "20220101") + "\n";
    const ::Setup setup = setup_of(folder.write("data.dat", text));
    const auto whole = survey_place(setup, SurveyLook::whole, given.host);
    const auto beginning = survey_place(setup, SurveyLook::beginning, given.host);
    ASSERT_TRUE(whole && beginning);
    EXPECT_EQ(whole->latitude, -21.5);
    EXPECT_TRUE(beginning->latitude > -21.99 && beginning->latitude < -21.8) << beginning->latitude;
    EXPECT_EQ(whole->date->decimal_year, 2021);
}

TEST(survey_place, given_a_grid_then_its_projection_tells)
{
    const TemporaryFolder folder;
    RecordedHost given;
    ::Setup setup;
    InversionDefinition & definition = setup.definition;
    definition.data_file_type = 1;
    definition.data_file[2] =
        folder.write("g.asc", "ncols 2\nnrows 2\nxllcorner 499900\nyllcorner 9999900\ncellsize 100\n1 2\n3 4\n");
    EXPECT_EQ(words_of(survey_place(setup, SurveyLook::whole, given.host)), "unknown");
    folder.write("g.prj", projection("54"));
    EXPECT_EQ(words_of(survey_place(setup, SurveyLook::whole, given.host)), "0 141");
}
