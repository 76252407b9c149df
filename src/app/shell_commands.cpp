#include "app/shell_commands.h"

#include "app/file_commands.h"
#include "app/output_folder.h"
#include "rules/apply_definition.h"
#include "rules/survey_place.h"
#include "rules/validation.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"
#include "support/text.h"

namespace {

/// The folder boxes follow.
void go_to_folder(const std::string & folder, Form & form)
{
    change_to_path(folder);
    show_current_folder(form);
    list_folders(form);
}

}

Status press_read_file(Session & session, int index, Host & host)
{
    const auto picked = host.dialogs.open_file({ "Select the inversion definition file",
                                                 "Inversion definition Files|*.inp;*.inp|All files (*.*)|*.*",
                                                 current_folder(),
                                                 {} });
    if (!picked) return Status::stopped;
    return read_definition(session, *picked, static_cast<Selection>(index), host);
}

Status press_save(Session & session, Host & host)
{
    std::optional<ValidatedDefinition> validated;
    if (check_inversion_definitions(session.setup, validated, host) != Status::good) return Status::bad;
    const auto picked =
        host.dialogs.save_file({ "Select the inversion definition file to create",
                                 "Inversion Definition Files (*.inp)|*.inp|All files (*.*)|*.*", current_folder(), "inp" });
    if (!picked) return Status::stopped;
    return save_checked_definition(session, *validated, *picked, host);
}

Status press_recent_file(Session & session, int index, Host & host)
{
    if (index < 0 || static_cast<std::size_t>(index) >= session.recent_files.size())
        throw SubscriptFault("there is no recent file " + std::to_string(index + 1));
    std::string path = absolute_path(session.recent_files[static_cast<std::size_t>(index)]);
    if (find_file(path).empty() && !locate_missing_file("QVinv3D Input Parameter File", path, host)) return Status::stopped;
    if (read_definition(session, path, Selection::all, host) != Status::good) return Status::bad;
    host.dialogs.message("The definitions have been loaded");
    return Status::good;
}

Status press_working_directory(Session & session, Host & host)
{
    const auto picked = host.dialogs.choose_folder("Select a Folder", current_folder());
    if (!picked) return Status::stopped;
    go_to_folder(*picked, session.setup.form);
    debug_write(host.debug, host.dialogs, false, "Write Varnok_ini from set_working_direcory");
    return Status::good;
}

Status press_set_current_folder(Session & session, Host &)
{
    const std::string folder = session.setup.form["Dir1"].text;
    go_to_folder(folder, session.setup.form);
    return Status::good;
}

Status press_make_folder(Session & session, Host & host)
{
    OutputFolder folder;
    if (take_output_folder(session.setup.form, FolderName::needed, folder, host) != Status::good) return Status::bad;
    if (!folder_exists(folder.path)) make_folder_path(folder.path);
    return Status::good;
}

Status press_define_transform(Session & session, Host & host)
{
    Setup & setup = session.setup;
    const auto defined = host.dialogs.define_transform(setup.definition.coordinate_transform);
    if (!defined) return Status::stopped;
    setup.definition.coordinate_transform = *defined;
    normalise_point_transform(setup.definition.coordinate_transform);
    show_transform(setup);
    return Status::good;
}

Status press_calculate_igrf(Session & session, Host & host)
{
    const IgrfRecord before = session.igrf;
    InversionDefinition & definition = session.setup.definition;
    const auto survey = survey_place(session.setup, SurveyLook::whole, host);
    if (!host.dialogs.define_igrf(session.igrf, survey ? &*survey : nullptr)) return Status::stopped;
    const IgrfRecord & field = session.igrf;
    if (!field.computed) return Status::stopped;
    if (!host.dialogs.question("Copy the IGRF values?")) {
        session.igrf = before;
        return Status::stopped;
    }
    const struct {
        const char * control;
        float & field;
        double value;
        const char * pattern;
    } rows[] = { { "Text_mag_inclination", definition.mag_inclination, field.inclination, "0.00" },
                 { "Text_mag_declination", definition.mag_declination, field.declination, "0.000" },
                 { "Text_mag_intensity", definition.mag_intensity, field.intensity, "0.000" } };
    for (const auto & row : rows) {
        row.field = to_f32(row.value);
        session.setup.form[row.control].text = format_number(row.value, row.pattern);
    }
    return Status::good;
}

std::string checklist_text()
{
    return R"(Inversion check list

Parameters
1. Did you use the correct IGRF for TMI?
2. Did you use Inclination = -90 for VRMI, ASVI, VIAS?
3. Do you need to use a smaller wavelet eps value to reduce noise at depth in the inverted model?
4. Do you need to change the positivity constraint from the default? Default is Positive for mag, unconstrained for gravity.
5. Did you select the correct Observed Data File Type?
6. Did you use the "Set limits from Data" to calculate the base value for the observed data?
7. Did you assign the correct sensor elevation? Make sure you don't use DTM as sensor height!

Topo Data
8. Did you use a topo grid large enough to span the survey?

Mesh
9. Are the number of X & Y cells less than a power of 2? NB 256 cells is much faster than 257!
10. Are the Z cells less than a power of 2? NB 64 is better than 65!
11. Does the depth of the inversion need to be changed from the default of 1000 m?
12. Did you check the mesh layout using the View Mesh Layout button? Use it to reduce the number of cells to span the actual area of interest and to remove white space around the core region.

Create Inversion
13. Did you select the right output location and specify an appropriate name for the inversion output folder?
14. Did you hit the "Create Inversion" button?

Before running
15. Did you move the folder to the appropriate directory?
16. Did you copy over the MTX file to the folder (if redoing an inversion)?
17. When restarting an inversion (after the MTX was calculated) did you change the first line in the qvinv3D.inp file from 0 1 to 1 1?
)";
}
