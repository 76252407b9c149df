#include "mesh/weighting_list.h"
#include "rules/box_groups.h"
#include "support/numbers.h"

namespace {

constexpr std::int32_t normal_mode = 0;

struct AxisFaults {
    const char * crossed; ///< the limits as they are typed
    const char * no_cell; ///< a size beyond twice their range leaves no cell, and the limits meet
};

constexpr AxisFaults axis_faults[] = {
    { "The minimum X value must be less than the maximum value", "Min x mesh must be less than max" },
    { "The minimum Y value must be less than the maximum value", "Min y mesh must be less than max" },
    { "The minimum Z value must be less than the maximum value", "Min z mesh must be less than max" },
};

/// A limit that is no number is a fault of its own box.
bool has_limits(const Setup & setup, int axis)
{
    return is_numeric(setup.form("Text_min_val", axis).text) && is_numeric(setup.form("Text_max_val", axis).text);
}

double range_of(const Setup & setup, int axis)
{
    return box_number(setup, "Text_max_val", axis) - box_number(setup, "Text_min_val", axis);
}

std::string crossed_fault(const Setup & setup, int axis)
{
    if (!has_limits(setup, axis)) return "";
    return box_number(setup, "Text_max_val", axis) > box_number(setup, "Text_min_val", axis) ? "" : axis_faults[axis].crossed;
}

constexpr BoxCheck axis_boxes[] = {
    { "Text_min_val", 0, "The minimum X value is not valid", Limit::none, "", {}, &crossed_fault },
    { "Text_max_val", 0, "The maximum X value is not valid", Limit::none, "", {}, &crossed_fault },
    { "Text_cell_size", 0, "The X cell size is not valid", Limit::positive, "The X cell size must be positive" },
    { "Text_min_val", 1, "The minimum Y value is not valid", Limit::none, "", {}, &crossed_fault },
    { "Text_max_val", 1, "The maximum Y value is not valid", Limit::none, "", {}, &crossed_fault },
    { "Text_cell_size", 1, "The Y cell size is not valid", Limit::positive, "The Y cell size must be positive" },
    { "Text_min_val", 2, "The minimum Z value is not valid", Limit::none, "", {}, &crossed_fault },
    { "Text_max_val", 2, "The maximum Z value is not valid", Limit::none, "", {}, &crossed_fault },
    { "Text_cell_size", 2, "The Z cell size is not valid", Limit::positive, "The Z cell size must be positive" },
};
constexpr std::size_t boxes_of_axis = 3;
constexpr std::span<const BoxCheck> all_axis_boxes = axis_boxes;

constexpr BoxCheck lower_part_boxes[] = {
    { "Text_num_cells", 3, "The number of non-uniform z cells is not valid", Limit::not_negative,
      "The number of non-uniform z cells cannot be negative" },
    { "Text_cell_size", 3, "The non-uniform z cell multiplier is not valid", Limit::at_least_one,
      "The non-uniform z cell multiplier cannot be less than 1" },
};

bool has_lower_part(const Setup & setup) { return !setup.form("Text_num_cells", 3).text.empty(); }

constexpr CheckGroup lower_part = { lower_part_boxes, &has_lower_part };

bool has_padding(const Setup & setup) { return setup.refinement_mode == normal_mode && setup.definition.add_padding_cells == 1; }

std::string padding_fault(const Setup & setup, int index)
{
    List<double> list;
    return parse_weighting_list(setup.form("Text_padding_multipliers", index).text, list) == Status::good
               ? ""
               : "There is a problem with the padding cell definitions";
}

constexpr BoxCheck padding_boxes[] = {
    { "Text_padding_multipliers", 0, "", Limit::none, "", {}, &padding_fault },
    { "Text_padding_multipliers", 1, "", Limit::none, "", {}, &padding_fault },
};
constexpr CheckGroup padding = { padding_boxes, &has_padding };

/// What is found once the limits have been snapped.
std::string no_cell_fault(const Setup & setup, int axis)
{
    const double size = box_number(setup, "Text_cell_size", axis), range = range_of(setup, axis);
    return has_limits(setup, axis) && size > 0 && range > 0 && range / size <= 0.5 ? axis_faults[axis].no_cell : "";
}

constexpr BoxCheck cell_boxes[] = {
    { "Text_min_val", 0, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_max_val", 0, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_cell_size", 0, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_min_val", 1, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_max_val", 1, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_cell_size", 1, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_min_val", 2, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_max_val", 2, "", Limit::none, "", {}, &no_cell_fault },
    { "Text_cell_size", 2, "", Limit::none, "", {}, &no_cell_fault },
};

bool is_normal_mode(const Setup & setup) { return setup.refinement_mode == normal_mode; }

constexpr CheckGroup groups[] = { { axis_boxes }, lower_part, padding, { cell_boxes, &is_normal_mode } };

}

std::span<const CheckGroup> mesh_box_groups() { return groups; }

Status check_axis_boxes(Setup & setup, int axis, Host & host)
{
    return check_boxes(setup, all_axis_boxes.subspan(static_cast<std::size_t>(axis) * boxes_of_axis, boxes_of_axis), host);
}

Status check_lower_part_boxes(Setup & setup, Host & host) { return check_group(setup, lower_part, host); }
Status check_padding_boxes(Setup & setup, Host & host) { return check_group(setup, padding, host); }
