#include "form/igrf_form.h"

Form make_igrf_form()
{
    Form form;
    for (const char * name : {
             "Form_utility_define_IGRF",
             "Combo_IGRF",
             // the place and the date
             "Text_IGRF_date",
             "Text_IGRF_latitude",
             "Text_IGRF_longitude",
             "Text_IGRF_elevation",
             "Command_survey_centre",
             "Command_calculate_IGRF",
             // the field
             "Frame_IGRF_results",
             "Text_IGRF_intensity",
             "Text_IGRF_inclination",
             "Text_IGRF_declination",
             "Text_IGRF_intensity_SV",
             "Text_IGRF_inclination_SV",
             "Text_IGRF_declination_SV",
             "Label_IGRF_model",
             "Label_IGRF_state",
             "Command_save_igrf",
             "Command_done",
             "Command_cancel",
         })
        form.add(name);
    form["Form_utility_define_IGRF"].caption = "Calculate IGRF";
    form["Text_IGRF_elevation"].text = "0";
    return form;
}
