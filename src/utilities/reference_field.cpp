#include "utilities/reference_field.h"

#include "support/fault.h"
#include "support/pattern.h"
#include "support/program_folder.h"

#include <GeographicLib/MagneticModel.hpp>
#include <cmath>
#include <filesystem>

namespace {

constexpr const char * model_file = "igrf14";
constexpr double lowest_elevation = -10000, highest_elevation = 600000; // metres: deeper than the sea, and the model's own limit
constexpr double minutes_per_degree = 60;

enum FieldFault : std::int32_t { no_fault = 0, outside_dates = 1, no_place = 2, outside_elevations = 3 };

/// The folder that holds the model: as installed and as built, or the program's own.
std::filesystem::path model_folder()
{
    const std::filesystem::path program = program_folder();
    const std::filesystem::path shared = (program / ".." / "share" / "zeb_qvinv3d").lexically_normal();
    const std::filesystem::path file = std::string(model_file) + ".wmm";
    std::error_code ignored;
    for (const auto & folder : { shared, program })
        if (std::filesystem::exists(folder / file, ignored)) return folder;
    throw FileFault("cannot open", (shared / file).string(),
                    "the coefficients of the reference field are missing; install the program again");
}

/// The model in memory.
struct LoadedModel {
    GeographicLib::MagneticModel field;
    ReferenceFieldModel about;

    explicit LoadedModel(const std::filesystem::path & folder)
        : field(model_file, folder.string()), about{ field.Description(), field.MinTime(), field.MaxTime() }
    {
    }
};

LoadedModel load_model()
{
    const std::filesystem::path folder = model_folder();
    try {
        return LoadedModel(folder);
    } catch (const GeographicLib::GeographicErr & fault) {
        throw FileFault("cannot read", (folder / model_file).string() + ".wmm.cof",
                        std::string(fault.what()) + "; install the program again");
    }
}

/// Read when it is first asked for.
const LoadedModel & loaded_model()
{
    static const LoadedModel model = load_model();
    return model;
}

FieldFault fault_of(double date, double latitude, double longitude, double elevation)
{
    const ReferenceFieldModel & model = reference_field_model();
    if (!(date >= model.first_year && date <= model.last_year)) return outside_dates;
    if (!(std::abs(latitude) <= 90 && std::abs(longitude) <= 360)) return no_place;
    if (!(elevation >= lowest_elevation && elevation <= highest_elevation)) return outside_elevations;
    return no_fault;
}

}

const ReferenceFieldModel & reference_field_model() { return loaded_model().about; }

std::int32_t IGRF10(double date, double latitude, double longitude, double elevation, ReferenceField & field)
{
    const FieldFault fault = fault_of(date, latitude, longitude, elevation);
    if (fault != no_fault) return fault;
    double east, north, up, east_sv, north_sv, up_sv, horizontal, horizontal_sv;
    loaded_model().field(date, latitude, longitude, elevation, east, north, up, east_sv, north_sv, up_sv);
    GeographicLib::MagneticModel::FieldComponents(east, north, up, east_sv, north_sv, up_sv, horizontal, field.intensity,
                                                  field.declination, field.inclination, horizontal_sv, field.intensity_sv,
                                                  field.declination_sv, field.inclination_sv);
    // The model gives degrees per year; whoever asks here is given minutes, and divides by 60 to show degrees.
    field.declination_sv *= minutes_per_degree;
    field.inclination_sv *= minutes_per_degree;
    return no_fault;
}

std::string reference_field_fault(std::int32_t error_code)
{
    const auto year = [](double value) { return format_number(value, "0.0"); };
    switch (error_code) {
    case no_fault:
        return {};
    case outside_dates:
        return "the date is outside the years of the model, " + year(reference_field_model().first_year) + " to " +
               year(reference_field_model().last_year);
    case no_place:
        return "the latitude must lie within 90 degrees of 0, the longitude within 360";
    case outside_elevations:
        return "the elevation must lie between -10000 and 600000 m";
    default:
        return "unknown";
    }
}
