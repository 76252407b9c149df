#include "rules/field_comparison.h"

#include "definition/enumerations.h"
#include "rules/survey_place.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "utilities/reference_field.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double most_degrees = 3, most_share = 0.02;
constexpr std::int32_t vrmi = 30;

bool uses_field(const InversionDefinition & definition)
{
    if (file_class(definition) != FileClass::magnetic || std::abs(definition.mag_inclination) == 90) return false;
    const bool own = inversion_method_of(definition.inversion_method).family == MethodFamily::own;
    return !own || definition.obs_data_types[0] != vrmi; // which has no direction
}

struct Difference {
    double degrees = 0, share = 0;

    bool matters() const { return degrees > most_degrees || share > most_share; }
    double weight() const { return std::max(degrees / most_degrees, share / most_share); }
};

Difference difference(const InversionDefinition & definition, const ReferenceField & field)
{
    constexpr double radian = std::numbers::pi / 180;
    const double i = static_cast<double>(definition.mag_inclination) * radian, j = field.inclination * radian;
    const double turn = (static_cast<double>(definition.mag_declination) - field.declination) * radian;
    const double cosine = std::cos(i) * std::cos(j) * std::cos(turn) + std::sin(i) * std::sin(j);
    return { std::acos(std::clamp(cosine, -1.0, 1.0)) / radian,
             std::abs(static_cast<double>(definition.mag_intensity) / field.intensity - 1) };
}

/// The field of the date, or of the year at whose field the definition's comes closest. False when there is none.
bool closest_field(const InversionDefinition & definition, const SurveyPlace & place, double & year, ReferenceField & field)
{
    const ReferenceFieldModel & model = reference_field_model();
    const double first = place.date ? place.date->decimal_year : model.first_year;
    const double last = place.date ? first : model.last_year;
    bool found = false;
    for (double date = first; date <= last; ++date) {
        ReferenceField other;
        if (IGRF10(date, place.latitude, place.longitude, place.elevation.value_or(0), other) != 0) continue;
        if (found && difference(definition, other).weight() >= difference(definition, field).weight()) continue;
        found = true;
        year = date;
        field = other;
    }
    return found;
}

std::string field_text(double inclination, double declination, double intensity)
{
    return "inclination " + format_number(inclination, "0.00") + ", declination " + format_number(declination, "0.00") +
           ", intensity " + format_number(intensity, "0") + " nT";
}

}

void compare_field(const Setup & setup, Host & host)
{
    const InversionDefinition & definition = setup.definition;
    if (!uses_field(definition)) return;
    // The check must not take the time of reading a large survey: its beginning is near enough.
    const auto place = survey_place(setup, SurveyLook::beginning, host);
    if (!place) return;
    ReferenceField field;
    double year = 0;
    try {
        if (!closest_field(definition, *place, year, field) || !difference(definition, field).matters()) return;
    } catch (const FileFault &) { // no model, no comparison
        return;
    }
    const std::string when = place->date ? "on " + igrf_date_text(*place->date)
                                         : "in " + format_number(year, "0") + ", the year in which it comes closest";
    host.dialogs.message("The magnetic field does not fit the survey: " +
                         field_text(definition.mag_inclination, definition.mag_declination, definition.mag_intensity) +
                         " are given, but " + reference_field_model().name + " has " +
                         field_text(field.inclination, field.declination, field.intensity) + " at latitude " +
                         format_number(place->latitude, "0.000") + ", longitude " + format_number(place->longitude, "0.000") +
                         " " + when);
}
