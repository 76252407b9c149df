#pragma once

#include "utilities/igrf_record.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The columns of a file of points that tell where on earth and when a reading was made; from 1, 0 for one that there is not.
struct SurveyColumns {
    std::int32_t longitude = 0, latitude = 0, date = 0;

    bool has_degrees() const { return longitude > 0 && latitude > 0; }
};

/// Finds them by the names of the columns, as surveys write them: "Lon", "LATITUDE", "GDA94_long", "Flight_Date". The first of
/// each kind counts.
SurveyColumns survey_columns(std::span<const std::string> names);

/// The date in a field of a survey: "20210120", "2021/01/20", "2021-01-20", "20/1/2021" or "2021.05". Nothing for any other
/// text and for a year that no airborne survey was flown in.
std::optional<IgrfDate> survey_date(std::string_view text);
