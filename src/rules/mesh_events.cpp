#include "rules/mesh_events.h"

#include "rules/box_checks.h"
#include "rules/mesh_boxes.h"
#include "rules/validation_steps.h"
#include "support/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

using Limits = std::array<double, 4> InversionDefinition::*;

/// The box holds a number within the limit.
bool holds(const Setup & setup, std::string_view control, int index, Limit limit = Limit::none)
{
    return is_numeric(setup.form(control, index).text) && within(box_number(setup, control, index), limit);
}

bool axis_is_filled_in(const Setup & setup, int axis)
{
    return holds(setup, "Text_min_val", axis) && holds(setup, "Text_max_val", axis) &&
           box_number(setup, "Text_max_val", axis) > box_number(setup, "Text_min_val", axis) &&
           holds(setup, "Text_cell_size", axis, Limit::positive);
}

bool lower_part_is_filled_in(const Setup & setup)
{
    return holds(setup, "Text_cell_size", 3, Limit::positive) && holds(setup, "Text_num_cells", 3, Limit::not_negative);
}

/// Slight changes wait for the button "update".
bool differs(const Setup & setup, std::string_view control, int index, Limits stored)
{
    constexpr double slight = 0.1;
    return std::abs(box_number(setup, control, index) - (setup.definition.*stored)[static_cast<std::size_t>(index)]) >= slight;
}

bool limit_is_ready(const Setup & setup, std::string_view control, int index, Limits stored)
{
    return index < 3 && axis_is_filled_in(setup, index) && differs(setup, control, index, stored);
}

bool size_is_ready(const Setup & setup, std::string_view control, int index, Limits stored)
{
    const int axis = std::min(index, 2);
    return axis_is_filled_in(setup, axis) && (axis < 2 || lower_part_is_filled_in(setup)) &&
           differs(setup, control, index, stored);
}

bool count_is_ready(const Setup & setup, std::string_view, int index, Limits)
{
    return index == 3 && lower_part_is_filled_in(setup); // the other counts are shown only
}

/// A box that is taken into the record when it is left, if what stands around it is filled in.
struct MeshBox {
    const char * control;
    Limits stored;
    bool keeps_maximum;
    bool (*is_ready)(const Setup & setup, std::string_view control, int index, Limits stored);
};

constexpr MeshBox mesh_boxes[] = {
    { "Text_min_val", &InversionDefinition::mesh_min, false, &limit_is_ready },
    { "Text_max_val", &InversionDefinition::mesh_max, true, &limit_is_ready },
    { "Text_cell_size", &InversionDefinition::mesh_cell_size, false, &size_is_ready },
    { "Text_num_cells", nullptr, false, &count_is_ready },
};

}

bool leave_mesh_box(Setup & setup, std::string_view control, int index, Host & host)
{
    const auto box = std::ranges::find(mesh_boxes, control, [](const MeshBox & row) { return std::string_view(row.control); });
    if (box == std::end(mesh_boxes)) return false;
    if (box->is_ready(setup, control, index, box->stored))
        static_cast<void>(unload_mesh_from_form(setup, std::min(index, 2), box->keeps_maximum, host)); // has shown its message
    return true;
}

Status press_update(Setup & setup, int index, Host & host)
{
    const bool whole_mesh = index >= 3;
    if (unload_mesh_from_form(setup, whole_mesh ? -1 : index, false, host) != Status::good) return Status::bad;
    if (!whole_mesh) return Status::good;
    if (check_mesh_limits(setup, host) != Status::good) return Status::bad; // no mesh without a cell, and here in words
    return build_design_mesh(setup, host);
}
