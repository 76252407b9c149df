#pragma once

#include "host/host.h"
#include "support/status.h"

#include <cstdint>
#include <string>
#include <string_view>

// The earth's field at a named place and date: what the field calculator and the command line compute, show and keep.

/// A date in decimal years. The day, month and year as well when it was given as such; otherwise they are 0.
struct IgrfDate {
    double decimal_year = 0;
    std::int32_t day = 0, month = 0, year = 0;
};

/// Reads decimal years ("2003.5") or d/m/yyyy ("1/7/2003"). Bad, and `date` as it was, for a text that is neither, and for a day
/// that is not in the calendar.
Status parse_igrf_date(std::string_view text, IgrfDate & date);
/// "dd/mm/yyyy"; the decimal year when the day is not known, which is "yyyy" for a whole one.
std::string igrf_date_text(const IgrfDate & date);

/// A place, a date, and the field computed there.
struct IgrfRecord {
    std::string name; ///< of a saved location
    IgrfDate date;
    double latitude = 0, longitude = 0; ///< decimal degrees; south and west negative
    double elevation = 0;               ///< metres above the ellipsoid
    double intensity = 0;               ///< nT
    double inclination = 0;             ///< degrees, down from the horizontal
    double declination = 0;             ///< degrees, east of north
    double intensity_sv = 0;            ///< nT per year
    double inclination_sv = 0;          ///< degrees per year
    double declination_sv = 0;          ///< degrees per year
    bool computed = false;              ///< the field is that of this place and date
};

/// What is asked for, as the user wrote it. Angles are decimal degrees or "dd mm ss.sss", with or without a letter behind.
struct IgrfTexts {
    std::string date;
    std::string longitude;
    std::string latitude;
    std::string elevation = "0";
};

/// Computes the field for four texts. The first text that is no good, or a field that cannot be computed, shows one message and
/// leaves `record` as it was. The name in `record` stays.
Status calculate_igrf(const IgrfTexts & texts, IgrfRecord & record, Host & host);

/// A record's place and field as they are shown. The place can be read back by `calculate_igrf`, but for a longitude that is
/// shown as 181 degrees: "180 59 59.9996" is still taken.
struct IgrfShown {
    std::string date, longitude, latitude, elevation;
    std::string intensity, inclination, declination;
    std::string intensity_sv, inclination_sv, declination_sv;
};

IgrfShown igrf_shown(const IgrfRecord & record);
