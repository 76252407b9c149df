#pragma once

#include <cstdint>
#include <string>

/// The earth's main field at a place and date.
struct ReferenceField {
    double declination = 0; ///< degrees, east of north; at a pole north is the way along the longitude that was given
    double inclination = 0; ///< degrees, down from the horizontal
    double intensity = 0;   ///< nT

    // Secular variation: what changes in a year. At an epoch it is that of the years behind it.
    double declination_sv = 0, inclination_sv = 0; ///< minutes of arc per year
    double intensity_sv = 0;                       ///< nT per year
};

/// What the field is computed from, and for which dates (decimal years, both included).
struct ReferenceFieldModel {
    std::string name;
    double first_year = 0, last_year = 0;
};

/// The model that is installed with the program. Fails with a `FileFault` that names the file when it is not there.
const ReferenceFieldModel & reference_field_model();

/// The International Geomagnetic Reference Field.
///
/// date: decimal years. latitude, longitude: decimal degrees, geodetic, WGS84; the longitude within a turn of 0. elevation:
/// metres above the ellipsoid, from 10 km below it to 600 km above. The result is 0 and `field` is filled, or a code of
/// `reference_field_fault` and `field` stays as it was: a date outside the model is never extrapolated. Fails with a `FileFault`
/// when the model's file is not there.
std::int32_t IGRF10(double date, double latitude, double longitude, double elevation, ReferenceField & field);

/// What an error code of `IGRF10` says, in words for the user; empty for 0.
/// 1: the date, 2: the latitude or longitude, 3: the elevation is outside the range. The first of them that is.
std::string reference_field_fault(std::int32_t error_code);
