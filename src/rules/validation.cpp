#include "rules/validation.h"

#include "rules/field_comparison.h"
#include "rules/mesh_boxes.h"
#include "rules/refined_boxes.h"
#include "rules/tile_boxes.h"
#include "rules/validation_steps.h"

/// The one place that may make a validated record.
struct DefinitionCheck {
    static ValidatedDefinition validated(const Setup & setup)
    {
        InversionDefinition record = setup.definition;
        record.description = setup.form["Text_description"].text;
        record.refinement_mode = setup.refinement_mode;
        return ValidatedDefinition(std::move(record), setup.in_use);
    }
};

namespace {

Status check_tiles(Setup & setup, Host & host)
{
    return setup.refinement_mode == 1 ? check_tile_definitions(setup, host) : Status::good;
}

using Step = Status (*)(Setup &, Host &);

constexpr Step steps[] = {
    check_mesh_limits,     take_padding_texts,    check_corrections,       check_error_boxes,
    check_observed_file,   check_topography_file, check_grid_files,        derive_data_types,
    check_magnetic_field,  check_type_parameters, check_solver_parameters, take_error_terms,
    check_alphas,          check_weighting_model, take_weighting_file,     check_initial_model,
    check_reference_model, check_model_bounds,    check_rock_properties,   check_iteration_limit,
    check_tiles,           build_design_mesh,     check_refined_bottom,
};

}

Status check_inversion_definitions(Setup & setup, std::optional<ValidatedDefinition> & validated, Host & host)
{
    if (take_mesh_boxes(setup, -1, false, host) != Status::good) return Status::bad;
    setup.in_use = {};
    for (const Step step : steps)
        if (step(setup, host) != Status::good) return Status::bad;
    validated = DefinitionCheck::validated(setup);
    compare_field(setup, host);
    return Status::good;
}
