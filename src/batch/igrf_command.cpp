#include "batch/commands.h"
#include "batch/printed_lines.h"
#include "support/pattern.h"
#include "utilities/reference_field.h"

Status igrf_command(const IgrfTexts & texts, Host & display)
{
    IgrfRecord record;
    if (calculate_igrf(texts, record, display) != Status::good) return Status::bad;
    const IgrfShown shown = igrf_shown(record);
    const ReferenceFieldModel & model = reference_field_model();
    print({ { "declination", shown.declination },
            { "inclination", shown.inclination },
            { "intensity", shown.intensity },
            { "declination_sv", shown.declination_sv },
            { "inclination_sv", shown.inclination_sv },
            { "intensity_sv", shown.intensity_sv },
            { "model", model.name },
            { "epochs", format_number(model.first_year, "0.0") + " to " + format_number(model.last_year, "0.0") } });
    return Status::good;
}
