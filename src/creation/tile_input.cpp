#include "creation/inversion_input.h"
#include "creation/tile_solver.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

namespace {

bool is_own(const Creation & creation) { return creation.solver().form == InputForm::own; }

std::string input_name(const Creation & creation, const char * name) { return tile_file_name(name, tile_class(creation)); }

/// What the solver does, with which trade-off.
Lines purpose(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (is_own(creation)) return { background_line(definition), own_trade_off_line(definition) };
    return { inversion_mode_line(definition), trade_off_line(definition) };
}

std::string first_line(const Creation & creation, SolverStart start)
{
    const std::string types = " " + general_text(creation.definition.obs_data_type_count);
    return start_flag(start) + (is_own(creation) ? types : "");
}

std::string matrices(const Creation & creation)
{
    if (is_own(creation)) return own_matrix_list(creation.definition, creation.path_prefix());
    return creation.solver().inversion + std::string(".mtx");
}

/// Only the own solver starts from the shared model; the others have it as their reference.
std::string initial_model(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (is_own(creation) && definition.tile_use_reference == 1) return shared_model_in_tile(creation);
    return trim(definition.initial_model).empty() ? "null" : file_name_of_path(definition.initial_model);
}

std::string reference_model(const Creation & creation)
{
    if (creation.definition.tile_use_reference == 1) return shared_model_in_tile(creation);
    if (!creation.in_use.reference) return "null";
    if (uses_rock_table_in_tiles(creation)) return input_name(creation, tile_solver_of(creation).input_ref);
    return file_name_of_path(creation.definition.reference_model);
}

/// One line, or a lower and an upper bound. The second blank of "VALUE  2.0" is where the minus of the first would be.
Lines bounds(const Creation & creation)
{
    const TileSolver & solver = tile_solver_of(creation);
    const auto & fields = creation.definition.model_bounds;
    const bool two_lines = *solver.input_upper_bounds;
    if (!creation.in_use.bounds) return two_lines ? Lines{ "VALUE -2.0", "VALUE  2.0" } : Lines{ "null" };
    Lines both = { file_name_of_path(fields[0]), file_name_of_path(fields[1]) };
    if (uses_rock_table_in_tiles(creation)) both = { input_name(creation, solver.input_bounds), solver.input_upper_bounds };
    return two_lines ? both : Lines{ both[0] };
}

/// What the coarse model gives at the readings, for the own solver to subtract.
std::string subtracted_data(const Creation & creation)
{
    const bool coarse = is_own(creation) && creation.definition.tile_coarse_model == coarse_forward_model;
    return coarse ? tile_class(creation).data + std::string("_null.obs") : "0";
}

}

Lines tile_input_lines(const Creation & creation, SolverStart start)
{
    const InversionDefinition & definition = creation.definition;
    if (creation.solver().form == InputForm::first)
        return first_solver_lines(creation, start, file_name_of_path(definition.model_bounds[0]));
    Lines lines = { first_line(creation, start) };
    append(lines, purpose(creation));
    append(lines, { creation.files().observed, matrices(creation), initial_model(creation), reference_model(creation) });
    append(lines, bounds(creation));
    append(lines, { alpha_line(definition), weighting_line(definition), subtracted_data(creation) });
    if (is_own(creation) && definition.max_iterations > 0) lines.push_back(general_text(definition.max_iterations));
    return lines;
}
