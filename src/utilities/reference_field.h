#pragma once

#include <cstdint>
#include <string>

/// The earth's main field at a place and date.
struct ReferenceField {
    double declination = 0;                        ///< degrees, east of north
    double inclination = 0;                        ///< degrees, down from the horizontal
    double intensity = 0;                          ///< nT
    double declination_sv = 0, inclination_sv = 0; ///< secular variation, minutes of arc per year
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
/// date: decimal years. latitude, longitude: decimal degrees, geodetic, WGS84. elevation: metres above the ellipsoid.
/// The result is 0 and `field` is filled, or a code of `reference_field_fault` and `field` stays as it was: a date outside the
/// model is never extrapolated. Fails with a `FileFault` when the model's file is not there.
std::int32_t IGRF10(double date, double latitude, double longitude, double elevation, ReferenceField & field);

/// What an error code of `IGRF10` says, in words for the user.
std::string reference_field_fault(std::int32_t error_code);
