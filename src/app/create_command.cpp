#include "app/create_command.h"

#include "creation/pipeline.h"
#include "definition/enumerations.h"
#include "rules/validation.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text.h"

#include <array>

namespace {

/// Where the inversion goes, taken from the boxes; the path has a "\" at its end.
struct OutputFolder {
    std::string path;
    std::string name;
};

/// The names of a family's own output files, which the folder must not have.
std::array<const char *, 2> output_stems(MethodFamily family)
{
    switch (family) {
    case MethodFamily::magnetic:
        return { "MAGINV3D", "MAGSEN3D" };
    case MethodFamily::gravity:
        return { "GZINV3D", "GZSEN3D" };
    case MethodFamily::own:
        break;
    }
    return { "QVINV3D", "QVSEN3D" };
}

Status take_output_folder(const Setup & setup, OutputFolder & folder, Host & host)
{
    const struct {
        const char * control;
        const char * message;
    } boxes[] = {
        { "Drive1", "No drive has been selected" },
        { "Dir1", "No file location has been selected" },
        { "Text_directory_name", "No output directory name has been specified" },
    };
    for (const auto & box : boxes) {
        if (!trim(setup.form[box.control].text).empty()) continue;
        host.dialogs.message(box.message);
        return Status::bad;
    }
    folder.name = trim(setup.form["Text_directory_name"].text);
    for (const char * stem : output_stems(inversion_method_of(setup.definition.inversion_method).family)) {
        if (upper_case(folder.name) != stem) continue;
        host.dialogs.message("The output directory name conflicts with the output file names");
        return Status::bad;
    }
    folder.path = with_backslash(with_backslash(std::string(trim(setup.form["Dir1"].text))) + folder.name);
    return Status::good;
}

/// The definition goes into the folder twice: under the name that the programs know and under the folder's own.
void save_into_folder(Session & session, const ValidatedDefinition & definition, const OutputFolder & folder, Host & host)
{
    save_inversion_parameters(folder.path + "inversion.inp", definition);
    std::string bare = folder.name;
    while (bare.ends_with('\\')) bare.pop_back();
    const std::string named = folder.path + bare + ".inp";
    save_inversion_parameters(named, definition);
    add_file_to_MRU(session, named, host);
}

CreateMode mode_of(const Setup & setup, int index)
{
    if (index == 0) return CreateMode::all;
    if (index == 1) return CreateMode::parameters;
    return setup.form["Check_update_data_files"].on ? CreateMode::variation_with_data : CreateMode::variation;
}

Status check_and_create(Session & session, int index, const OutputFolder & folder, Host & host, bool & handled)
{
    Setup & setup = session.setup;
    host.progress.line("Checking inversion definitions");
    std::optional<ValidatedDefinition> definition;
    if (check_inversion_definitions(setup, definition, host) != Status::good) return Status::bad;
    if (index == 2 && definition->in_use().rock_properties && (*definition)->rock_property_application != 1) {
        host.dialogs.message("The inversion variation option is not available for Rock Property inversions");
        return Status::bad;
    }
    if (!folder_exists(folder.path)) {
        make_folder_path(folder.path);
        host.progress.line("Creating inversion directory");
    }
    host.progress.line("Saving the inversion definitions");
    save_into_folder(session, *definition, folder, host);
    handled = true; // from here on the pipeline shows its own failures
    return create_inversion(*definition, setup.design_mesh, folder.path, mode_of(setup, index), host);
}

}

Status press_create_inversion(Session & session, int index, Host & host)
{
    session.setup.form["Text_progress"].text.clear();
    OutputFolder folder;
    if (take_output_folder(session.setup, folder, host) != Status::good) return Status::bad;

    bool handled = false;
    std::string fault_text;
    try {
        const Status status = check_and_create(session, index, folder, host, handled);
        if (status != Status::bad || handled) return status;
    } catch (const Stopped &) {
        return Status::stopped;
    } catch (const std::exception & fault) {
        fault_text = fault.what();
    }
    // A failed check has shown its own message and ends here too, with nothing to add.
    host.dialogs.message("An error occurred while creating the inversion: " + fault_text);
    return Status::bad;
}
