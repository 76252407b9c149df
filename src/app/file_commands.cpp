#include "app/file_commands.h"

#include "rules/apply_definition.h"
#include "rules/validation.h"
#include "support/fault.h"
#include "support/paths.h"

#include <filesystem>

namespace {

Status show_fault(const std::exception & fault, Host & host)
{
    host.dialogs.message(fault.what());
    return Status::bad;
}

}

Status read_definition(Session & session, const std::string & path, Selection selection, Host & host)
{
    if (find_file(path).empty() && !folder_exists(path)) {
        host.dialogs.message("That file does not exist");
        return Status::bad;
    }
    const std::string whole = absolute_path(path);
    // A part is taken over into what is there; what it does not hold reads as it stood.
    InversionDefinition record = selection == Selection::all ? InversionDefinition() : session.setup.definition;
    try {
        if (read_inversion_parameter_file(whole, selection, record, host.dialogs) != Status::good) return Status::bad;
        change_to_path(whole);
        session.setup.form["Form_mag3d"].caption = "3D inversion setup: " + file_name_of_path(whole);
        load_mag3d_form(session.setup, record, selection, host);
    } catch (const std::exception & fault) {
        return show_fault(fault, host);
    }
    if (selection == Selection::all) add_file_to_MRU(session, whole, host);
    return Status::good;
}

Status save_definition(Session & session, std::string path, Host & host)
{
    std::optional<ValidatedDefinition> validated;
    try {
        if (check_inversion_definitions(session.setup, validated, host) != Status::good) return Status::bad;
    } catch (const std::exception & fault) {
        return show_fault(fault, host);
    }
    return save_checked_definition(session, *validated, std::move(path), host);
}

Status save_checked_definition(Session & session, const ValidatedDefinition & definition, std::string path, Host & host)
{
    if (file_extension_of_path(path).empty()) path += ".inp";
    std::error_code ignored;
    if (std::filesystem::exists(host_path(path), ignored) && !host.dialogs.question("That file already, exists, overwrite?"))
        return Status::bad;
    try {
        save_inversion_parameters(path, definition);
    } catch (const std::exception & fault) {
        return show_fault(fault, host);
    }
    add_file_to_MRU(session, path, host);
    return Status::good;
}
