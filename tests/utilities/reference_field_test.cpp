#include "fakes/case_table.h"
#include "utilities/reference_field.h"

#include <gtest/gtest.h>

namespace {

/// How far a table may be off: its rounding.
struct Tolerance {
    double degrees, intensity, minutes, intensity_change;
};

void expect_cases(const std::string & table, const Tolerance & tolerance)
{
    for (const auto & row : cases_of<10>(table)) {
        SCOPED_TRACE(row[0] + " " + row[1] + " " + row[2]);
        const auto number = [&](std::size_t column) { return number_in<double>(row.at(column)); };
        ReferenceField field;
        ASSERT_EQ(IGRF10(number(0), number(1), number(2), number(3), field), 0);
        EXPECT_NEAR(field.declination, number(4), tolerance.degrees);
        EXPECT_NEAR(field.inclination, number(5), tolerance.degrees);
        EXPECT_NEAR(field.intensity, number(6), tolerance.intensity);
        EXPECT_NEAR(field.declination_sv, number(7), tolerance.minutes);
        EXPECT_NEAR(field.inclination_sv, number(8), tolerance.minutes);
        EXPECT_NEAR(field.intensity_sv, number(9), tolerance.intensity_change);
    }
}

}

TEST(IGRF10, given_places_and_dates_then_the_field_is_that_of_the_coefficients)
{
    expect_cases("reference_field.cases", { 1.5e-5, 1.5e-3, 5e-4, 1.5e-3 });
}

TEST(IGRF10, given_published_values_then_the_field_is_theirs_to_the_last_digit)
{
    expect_cases("published_field.cases", { 0.0051, 0.51, 0.51, 0.51 });
}

TEST(IGRF10, given_something_outside_its_range_then_a_code_and_no_change)
{
    for (const auto & [date, latitude, longitude, elevation, code] : cases_of<5>("reference_range.cases")) {
        ReferenceField field{ .declination = 7, .intensity_sv = 8 };
        const auto calculated = IGRF10(number_in<double>(date), number_in<double>(latitude), number_in<double>(longitude),
                                       number_in<double>(elevation), field);
        EXPECT_EQ(calculated, number_in(code)) << date << " " << latitude << " " << longitude;
        EXPECT_EQ(field.declination, 7);
        EXPECT_EQ(field.intensity_sv, 8);
    }
}
