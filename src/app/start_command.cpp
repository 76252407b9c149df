#include "app/start_command.h"

#include "app/output_folder.h"
#include "definition/enumerations.h"
#include "support/paths.h"

namespace {

/// A variation shares its parent's sensitivities and has nothing but the inversion to run.
std::string variation_script(MethodFamily family)
{
    switch (family) {
    case MethodFamily::magnetic:
        return "run_maginv3d.bat";
    case MethodFamily::gravity:
        return "run_gzinv3d.bat";
    case MethodFamily::own:
        break;
    }
    return "run_qvinv3d.bat";
}

std::string script_to_start(const Setup & setup)
{
    if (setup.refinement_mode != 0) return "iter_all.bat";
    if (!setup.form["Check_generate_inversion_variation"].on) return "run_inversion.bat";
    return variation_script(inversion_method_of(setup.definition.inversion_method).family);
}

}

Status press_start_inversion(Session & session, Host & host)
{
    OutputFolder folder;
    if (take_output_folder(session.setup.form, FolderName::optional, folder, host) != Status::good) return Status::bad;
    const std::string script = script_to_start(session.setup);
    if (find_file(folder.path + script).empty()) {
        host.dialogs.message("The inversion batch file does not exist");
        return Status::bad;
    }
    host.launcher.start(absolute_path(folder.path), script);
    host.dialogs.message("The 3D inversion process has been started");
    return Status::good;
}
