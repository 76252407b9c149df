#pragma once

#include "rules/setup.h"
#include "utilities/igrf_record.h"

#include <optional>

/// Where a survey is on earth, and when it was made, as far as its files say so.
struct SurveyPlace {
    double latitude = 0, longitude = 0; ///< of its centre: decimal degrees, WGS84
    std::optional<double> elevation;    ///< metres; the middle of the sensor elevations
    std::optional<IgrfDate> date;       ///< the middle of its first and its last reading; of a database the first
};

/// How much of a file of points is looked at.
enum class SurveyLook {
    whole,    ///< all of its points
    beginning ///< the points in the first 64 KB, of a database the first rows: near enough to compare fields
};

/// The place of the definition's observed data: the centre of a grid or of points with a known projection, or of points with
/// columns of longitude and latitude, told by their names. A date is taken from a column whose name says so.
///
/// Nothing is guessed: what the files do not say, or say with values that cannot be, is not known. Shows no message and never
/// fails but with `Stopped`.
std::optional<SurveyPlace> survey_place(const Setup & setup, SurveyLook look, Host & host);
