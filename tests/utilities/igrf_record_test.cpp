#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "utilities/igrf_record.h"

#include <gtest/gtest.h>

TEST(parse_igrf_date, given_texts_then_decimal_years_within_their_year)
{
    for (const auto & [text, years, shown] : cases_of<3>("igrf_dates.cases")) {
        IgrfDate date{ .decimal_year = 7 };
        EXPECT_EQ(parse_igrf_date(text, date), years == "bad" ? Status::bad : Status::good) << text;
        EXPECT_NEAR(date.decimal_year, years == "bad" ? 7 : number_in<double>(years), 1e-9) << text;
        if (years != "bad") {
            EXPECT_EQ(igrf_date_text(date), shown);
        }
    }
}

TEST(calculate_igrf, given_texts_with_a_fault_then_the_first_one_is_told_and_the_record_stays)
{
    for (const auto & [date, longitude, latitude, elevation, message] : cases_of<5>("igrf_record.cases")) {
        RecordedHost host;
        IgrfRecord record;
        record.latitude = 5;
        EXPECT_EQ(calculate_igrf({ date, longitude, latitude, elevation }, record, host.host), Status::bad);
        EXPECT_EQ(host.dialogs.messages, std::vector<std::string>{ message });
        EXPECT_EQ(record.latitude, 5);
        EXPECT_FALSE(record.computed);
    }
}

TEST(calculate_igrf, given_good_texts_then_angles_change_in_degrees_and_what_is_shown_reads_back)
{
    RecordedHost host;
    IgrfRecord record, again;
    record.name = "camp";
    ASSERT_EQ(calculate_igrf({ "2025", "180", "45 N" }, record, host.host), Status::good);
    EXPECT_TRUE(record.computed);
    EXPECT_EQ(record.name, "camp");
    EXPECT_NEAR(record.declination_sv, -7.5087 / 60, 1e-5);
    EXPECT_NEAR(record.inclination_sv, 0.9971 / 60, 1e-5);
    const IgrfShown shown = igrf_shown(record);
    EXPECT_EQ(shown.latitude + "|" + shown.elevation + "|" + shown.declination_sv, "45  0  0.000|0.0|-0.125");
    ASSERT_EQ(calculate_igrf({ shown.date, shown.longitude, shown.latitude, shown.elevation }, again, host.host), Status::good);
    EXPECT_EQ(again.intensity, record.intensity);
}
