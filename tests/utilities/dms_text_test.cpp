#include "fakes/case_table.h"
#include "utilities/dms_text.h"

#include <gtest/gtest.h>

TEST(parse_dms_text, given_texts_then_their_angles_and_whether_the_check_takes_them)
{
    for (const auto & [text, longitude, longitude_check, latitude, latitude_check] : cases_of<5>("dms_read.cases")) {
        SCOPED_TRACE(text);
        const auto expect = [&text = text](DmsAxis axis, const std::string & value, const std::string & check) {
            EXPECT_NEAR(parse_dms_text(text, axis), number_in<double>(value), 1e-9);
            EXPECT_EQ(check_dms_text(text, axis), check == "good" ? Status::good : Status::bad);
        };
        expect(DmsAxis::longitude, longitude, longitude_check);
        expect(DmsAxis::latitude, latitude, latitude_check);
    }
}

TEST(format_dms_text, given_a_style_then_its_form)
{
    const struct {
        double value;
        int style;
        const char * text;
    } cases[] = { { -33.5, 0, " -33 30  0.000" },     { -151.51, 0, "-151 30 36.000" },     { -0.25, 0, "  -0 15  0.000" },
                  { -1e-9, 0, "   0  0  0.000" },     { 59.99999999, 0, "  60  0  0.000" }, { 10.9999, 1, "E  11  0" },
                  { -10.5, 2, "W  10 30  0" },        { -10.5, -2, "S  10 30  0" },         { 10.51, -3, "N  10 30' 36.000\"" },
                  { -5.0001, 4, "W   5  0  0.3600" }, { 5.0001, -5, "N   5  0  0.36000" } };
    for (const auto & [value, style, text] : cases) EXPECT_EQ(format_dms_text(value, style), text);
}
