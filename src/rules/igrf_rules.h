#pragma once

#include "form/form.h"
#include "host/host.h"
#include "rules/survey_place.h"
#include "support/status.h"
#include "utilities/igrf_record.h"

#include <optional>

/// The dialog that computes the earth's field: its form and the record behind it.
struct IgrfSetup {
    Form form;
    IgrfRecord record; ///< the field that is shown, and where and when it is that
    std::optional<SurveyPlace> survey;
    bool edited = false; ///< the place or the date has been typed in since: what is shown belongs to the record, not to the boxes
};

/// The dialog's form, showing a record; one without a field gives way to the last that was accepted in an earlier run.
IgrfSetup open_igrf(const IgrfRecord & record, const std::optional<SurveyPlace> & survey, Host & host);

/// The user has changed a control: a saved location picked in "Combo_IGRF" is shown, a box that is typed in leaves the field
/// behind.
void change_igrf(IgrfSetup & setup, std::string_view control, Host & host);

/// Runs a command by its name: "Command_calculate_IGRF", "Command_save_igrf", "Command_survey_centre", "Command_done". The last
/// one is good when the dialog may close with what it shows; a place that has been typed in is computed first.
/// Bad after one message, with the field as it was. Fails with a `FileFault` when the model is not there.
Status press_igrf(IgrfSetup & setup, std::string_view command, Host & host);
