#include "rules/box_checks.h"
#include "rules/validation.h"
#include "rules/validation_steps.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

namespace {

constexpr std::int32_t gravity_v2 = 1, gravity_v5 = 5, magnetic_v5 = 6;

bool is_unset(std::string_view text) { return trim(text).empty() || same_text(text, "null"); }
bool exists(const std::string & path) { return !find_file(path).empty(); }
bool has_bounds(const Setup & setup) { return setup.definition.inversion_method >= 1 && setup.definition.inversion_method <= 6; }

/// The folder that the inversion will be created in, absolute and with a "\" at its end; empty while it has no place or name.
std::string inversion_folder(const Setup & setup)
{
    const std::string_view place = trim(setup.form["Dir1"].text), name = trim(setup.form["Text_directory_name"].text);
    if (place.empty() || name.empty()) return {};
    return with_backslash(absolute_path(with_backslash(std::string(place)) + std::string(name)));
}

/// Finds a model file and settles its name: bare when it lies in the inversion folder, where the solvers run; otherwise looked
/// for in that folder, in the current one, and last by asking. False when the user cannot say where it is.
bool find_model_file(const Setup & setup, const char * prompt, std::string & name, Host & host)
{
    const std::string folder = inversion_folder(setup);
    const std::string bare = file_name_of_path(name);
    if (exists(name)) {
        if (!folder.empty() && upper_case(folder_of_path(name)) == upper_case(folder)) name = bare;
        return true;
    }
    const std::string current = with_backslash(current_folder()) + bare;
    if (!folder.empty() && exists(folder + bare)) {
        name = bare;
    } else if (exists(current)) {
        name = current;
    } else {
        std::string located = name;
        if (!locate_missing_file(prompt, located, host)) return false;
        name = located;
    }
    return true;
}

/// A file or a constant. A constant needs no place; a file keeps the text as it was typed.
bool is_file_or_number(const std::string & text) { return exists(text) || is_numeric(text); }

/// One box of the bounds; `bound` takes a constant as typed or the name of a file that has been found.
Status take_bound(Setup & setup, int index, Host & host)
{
    const std::int32_t method = setup.definition.inversion_method;
    std::string & box = setup.form("Text_depth_weighting_file", index).text;
    std::string & bound = setup.definition.model_bounds[static_cast<std::size_t>(index)];
    if (is_unset(box)) return Status::good;
    std::string text(trim(box));
    std::string_view rest = text;
    const bool two_bounds = method == gravity_v5 || method == magnetic_v5;
    const bool constant = is_numeric(next_token(rest)) && (two_bounds || is_numeric(text));
    if (!constant) {
        if (!find_model_file(setup, "Inversion bounds file", text, host))
            return refuse(method == gravity_v2 ? "The specified depth weighting matrix model file does not exist"
                                               : "The specified bounds file does not exist",
                          host);
        box = text;
    }
    bound = text;
    setup.in_use.bounds = setup.in_use.model_file = true;
    return Status::good;
}

}

Status check_weighting_model(Setup & setup, Host & host)
{
    std::string & model = setup.definition.weighting_model;
    if (is_unset(model)) {
        model = "null";
        return Status::good;
    }
    model = trim(model);
    if (!find_model_file(setup, "Inversion weighting matrix", model, host))
        return refuse("The specified weighting matrix model file does not exist", host);
    setup.form["Text_weight_file"].text = model;
    setup.in_use.model_file = true;
    return Status::good;
}

Status take_weighting_file(Setup & setup, Host &)
{
    setup.definition.create_weighting_file = setup.form["Check_create_weighting_file"].on ? 1 : 0;
    setup.definition.weight_multipliers = setup.form["Text_weight_multipliers"].text;
    return Status::good;
}

Status check_initial_model(Setup & setup, Host & host)
{
    const std::string text(trim(setup.form["Text_initial_file"].text));
    const bool unset = is_unset(text);
    if (!unset && !is_file_or_number(text))
        return refuse("The specified initial model file does not exist in the folder: " + current_folder(), host);
    setup.definition.initial_model = unset ? "null" : text;
    return Status::good;
}

Status check_reference_model(Setup & setup, Host & host)
{
    const std::string text(trim(setup.form["Text_reference_file"].text));
    const bool unset = is_unset(text);
    if (!unset && !is_file_or_number(text)) return refuse("The specified reference model file does not exist", host);
    setup.definition.reference_model = unset ? "null" : text;
    if (!unset) setup.in_use.reference = setup.in_use.model_file = true;
    return Status::good;
}

Status check_model_bounds(Setup & setup, Host & host)
{
    if (!has_bounds(setup)) return Status::good;
    const std::int32_t method = setup.definition.inversion_method;
    if (take_bound(setup, 0, host) != Status::good) return Status::bad;
    return method == gravity_v5 || method == magnetic_v5 ? take_bound(setup, 1, host) : Status::good;
}

Status check_rock_properties(Setup & setup, Host & host)
{
    const std::string text(trim(setup.form["Text_rock_propery_file"].text));
    if (has_bounds(setup) && !is_unset(text)) {
        if (!exists(text)) return refuse("The specified rock property file does not exist", host);
        setup.definition.rock_property_file = text;
        setup.in_use.rock_properties = true;
    }
    // A table has nothing to convert without a reference or bounds.
    if (!setup.in_use.reference && !setup.in_use.bounds) setup.in_use.rock_properties = false;
    return Status::good;
}
