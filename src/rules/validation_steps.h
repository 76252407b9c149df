#pragma once

#include "rules/setup.h"
#include "support/status.h"

// The steps of `check_inversion_definitions`. Each stores what it has found good and fails after one message.

// validation_parameters
Status check_mesh_limits(Setup & setup, Host & host);
Status take_padding_texts(Setup & setup, Host & host);
Status check_corrections(Setup & setup, Host & host);
Status check_error_boxes(Setup & setup, Host & host);
Status derive_data_types(Setup & setup, Host & host);
Status check_magnetic_field(Setup & setup, Host & host);
Status check_type_parameters(Setup & setup, Host & host);
Status check_solver_parameters(Setup & setup, Host & host);
Status take_error_terms(Setup & setup, Host & host);
Status check_alphas(Setup & setup, Host & host);
Status check_iteration_limit(Setup & setup, Host & host);

// mesh_box_checks: before the mesh boxes are taken
Status check_axis_boxes(Setup & setup, int axis, Host & host);
Status check_lower_part_boxes(Setup & setup, Host & host);
Status check_padding_boxes(Setup & setup, Host & host);

// data_file_checks
Status check_observed_file(Setup & setup, Host & host);
Status check_topography_file(Setup & setup, Host & host);
Status check_grid_files(Setup & setup, Host & host);

// model_file_checks
Status check_weighting_model(Setup & setup, Host & host);
Status take_weighting_file(Setup & setup, Host & host);
Status check_initial_model(Setup & setup, Host & host);
Status check_reference_model(Setup & setup, Host & host);
Status check_model_bounds(Setup & setup, Host & host);
Status check_rock_properties(Setup & setup, Host & host);
