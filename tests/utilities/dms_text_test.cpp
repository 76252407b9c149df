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
    for (const auto & [value, style, text] : cases_of<3>("dms_written.cases"))
        EXPECT_EQ(format_dms_text(number_in<double>(value), number_in(style)), text) << value << " " << style;
}
