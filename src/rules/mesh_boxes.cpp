#include "rules/mesh_boxes.h"

#include "rules/box_checks.h"
#include "rules/refined_boxes.h"
#include "rules/tile_boxes.h"
#include "rules/validation_steps.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <vector>

namespace {

constexpr std::int32_t normal_mode = 0;

/// The axes that a call works on.
std::vector<int> axes_of(int axis) { return axis < 0 ? std::vector<int>{ 0, 1, 2 } : std::vector<int>{ axis }; }

void show(Setup & setup, std::string_view box, int index, double value) { setup.form(box, index).text = general_text(value); }
void show(Setup & setup, std::string_view box, double value) { show(setup, box, 0, value); }
void show_count(Setup & setup, std::string_view box, int index, std::int32_t count)
{
    setup.form(box, index).text = general_text(count);
}

void clear_count_boxes(Setup & setup)
{
    for (const int index : { 5, 6, 7, 8 }) setup.form("Text_num_cells", index).text.clear();
    for (const char * box : { "Text_num_x_cells", "Text_num_y_cells", "Text_num_z_cells" }) setup.form[box].text.clear();
}

/// The definition holds the padding lists only while padding is on.
Status take_padding_boxes(Setup & setup)
{
    if (setup.definition.add_padding_cells == 1) {
        for (const int i : { 0, 1 })
            setup.definition.padding_multipliers[static_cast<std::size_t>(i)] = setup.form("Text_padding_multipliers", i).text;
    }
    return decode_padding_cells(setup.definition, setup.padding);
}

void take_limits(Setup & setup, int axis)
{
    const auto a = static_cast<std::size_t>(axis);
    setup.definition.mesh_min[a] = box_number(setup, "Text_min_val", axis);
    setup.definition.mesh_max[a] = box_number(setup, "Text_max_val", axis);
    setup.definition.mesh_cell_size[a] = box_number(setup, "Text_cell_size", axis);
}

void count_cells(InversionDefinition & definition, std::size_t a)
{
    definition.mesh_cells[a] = round_to_count((definition.mesh_max[a] - definition.mesh_min[a]) / definition.mesh_cell_size[a]);
}

void show_ranges(Setup & setup)
{
    for (int axis = 0; axis < 3; ++axis) {
        const auto a = static_cast<std::size_t>(axis);
        show(setup, "Text_max_val", 3 + axis, setup.definition.mesh_max[a] - setup.definition.mesh_min[a]);
    }
}

void snap_first(Setup & setup, int axis, bool keep_maximum)
{
    take_limits(setup, axis);
    const auto a = static_cast<std::size_t>(axis);
    InversionDefinition & definition = setup.definition;
    count_cells(definition, a);
    const double range = definition.mesh_cells[a] * definition.mesh_cell_size[a];
    if (keep_maximum) // shown nowhere, so the second pass takes the minimum as it was typed
        definition.mesh_min[a] = definition.mesh_max[a] - range;
    else
        definition.mesh_max[a] = range + definition.mesh_min[a];
    show_count(setup, "Text_num_cells", axis, definition.mesh_cells[a]);
    show(setup, "Text_max_val", axis, definition.mesh_max[a]);
}

/// x and y grow from their minimum; the z core hangs from its top.
void snap_second(Setup & setup, int axis)
{
    take_limits(setup, axis);
    const auto a = static_cast<std::size_t>(axis);
    InversionDefinition & definition = setup.definition;
    const bool on_nodes = setup.refinement_mode != normal_mode && axis < 2;
    if (on_nodes) {
        snap_to_nodes(setup, axis);
        show(setup, "Text_min_val", axis, definition.mesh_min[a]);
    }
    count_cells(definition, a);
    const double range = definition.mesh_cells[a] * definition.mesh_cell_size[a];
    if (on_nodes || (definition.mesh_cells[a] > 0 && axis < 2)) {
        definition.mesh_max[a] = range + definition.mesh_min[a];
        show(setup, "Text_max_val", axis, definition.mesh_max[a]);
    } else if (definition.mesh_cells[a] > 0) {
        definition.mesh_min[a] = definition.mesh_max[a] - range;
        show(setup, "Text_min_val", axis, definition.mesh_min[a]);
    }
    show_count(setup, "Text_num_cells", axis, definition.mesh_cells[a]);
}

void take_lower_part(Setup & setup)
{
    InversionDefinition & definition = setup.definition;
    if (setup.form("Text_num_cells", 3).text.empty()) {
        definition.mesh_cells[3] = 0;
        definition.mesh_cell_size[3] = 1;
    } else {
        definition.mesh_cells[3] = leading_count(setup.form("Text_num_cells", 3).text);
        definition.mesh_cell_size[3] = box_number(setup, "Text_cell_size", 3);
    }
    definition.mesh_min[3] = lower_part_bottom(definition.mesh_min[2], definition.mesh_cell_size[2], definition.mesh_cell_size[3],
                                               definition.mesh_cells[3]);
    show_count(setup, "Text_num_cells", 4, add_counts(definition.mesh_cells[2], definition.mesh_cells[3]));
    setup.form("Text_min_val", 3).text = format_number(definition.mesh_min[3], "0.0");
}

/// Writes the count boxes. When the whole mesh has more cells than can be counted, only those of each axis are shown.
void display_cell_counts(Setup & setup)
{
    if (take_padding_boxes(setup) != Status::good) return;
    if (calculate_cell_counts(setup.definition, setup.padding) != Status::good) return;
    const auto & total = setup.padding.total_cells;
    for (int axis = 0; axis < 3; ++axis) show_count(setup, "Text_num_cells", 6 + axis, total[static_cast<std::size_t>(axis)]);
    try {
        show_count(setup, "Text_num_cells", 5, multiply_counts(multiply_counts(total[0], total[1]), total[2]));
    } catch (const OverflowFault &) {
        return;
    }
    show_count(setup, "Text_num_x_cells", 0, total[0]);
    show_count(setup, "Text_num_y_cells", 0, total[1]);
    show_count(setup, "Text_num_z_cells", 0, total[2]);
}

Status check_mesh_boxes(Setup & setup, const std::vector<int> & axes, Host & host)
{
    for (const int axis : axes)
        if (check_axis_boxes(setup, axis, host) != Status::good) return Status::bad;
    if (axes.back() == 2 && check_lower_part_boxes(setup, host) != Status::good) return Status::bad;
    if (setup.refinement_mode != normal_mode) return check_tile_layout_boxes(setup, host);
    static_cast<void>(take_padding_boxes(setup)); // what is wrong with them is said next
    return check_padding_boxes(setup, host);
}

}

void show_outer_limits(Setup & setup)
{
    const InversionDefinition & definition = setup.definition;
    if (definition.add_padding_cells != 1) return;
    sum_padding(setup.padding);
    struct Row {
        std::size_t axis;
        const char *minimum, *maximum, *range;
    };
    constexpr Row rows[] = { { 0, "Text_min_east", "Text_max_east", "Text_range_east" },
                             { 1, "Text_min_north", "Text_max_north", "Text_range_north" } };
    for (const Row & row : rows) {
        const double low = definition.mesh_min[row.axis], high = definition.mesh_max[row.axis];
        const double size = definition.mesh_cell_size[row.axis];
        const double sum = setup.padding.sum_xy;
        show(setup, row.minimum, low - sum * size);
        show(setup, row.maximum, high + sum * size);
        show(setup, row.range, 2 * sum * size + (high - low));
    }
    // The bottom of the design mesh holds the padding of its last build already: these two boxes count it twice until it is
    // built anew, and users know them so.
    const UbcMesh & mesh = setup.design_mesh;
    const double padding = definition.mesh_cells[3] != 0 ? 0 : setup.padding.sum_z * definition.mesh_cell_size[2];
    setup.form["Text_max_elev"].text = setup.form("Text_max_val", 2).text;
    show(setup, "Text_min_elev", mesh.mesh_z_bottom - padding);
    show(setup, "Text_range_elev", padding + (mesh.mesh_z_top - mesh.mesh_z_bottom));
}

void clear_mesh_totals(Setup & setup)
{
    clear_count_boxes(setup);
    for (const char * box : { "Text_min_east", "Text_max_east", "Text_range_east", "Text_min_north", "Text_max_north",
                              "Text_range_north", "Text_min_elev", "Text_max_elev", "Text_range_elev" })
        setup.form[box].text.clear();
}

Status take_mesh_boxes(Setup & setup, int axis, bool keep_maximum, Host & host)
{
    const std::vector<int> axes = axes_of(axis);
    clear_count_boxes(setup);
    if (check_mesh_boxes(setup, axes, host) != Status::good) return Status::bad;
    for (const int a : axes) snap_first(setup, a, keep_maximum);
    show_ranges(setup);
    const bool built = setup.design_mesh.total_cells[0] > 0 && setup.design_mesh.total_cells[1] > 0;
    if (setup.refinement_mode != normal_mode || !built) {
        take_tile_boxes(setup);
        const std::string lower_cells = setup.form("Text_num_cells", 3).text; // taken below; the build shows the record's
        if (build_design_mesh(setup, host) != Status::good)
            return setup.refinement_mode == normal_mode ? Status::good : Status::bad;
        setup.form("Text_num_cells", 3).text = lower_cells;
    }
    for (const int a : axes) snap_second(setup, a);
    if (axes.back() == 2) take_lower_part(setup);
    display_cell_counts(setup);
    if (setup.refinement_mode == normal_mode)
        show_outer_limits(setup);
    else
        recount_tiles(setup);
    return Status::good;
}

Status unload_mesh_from_form(Setup & setup, int axis, bool keep_maximum, Host & host)
{
    try {
        return take_mesh_boxes(setup, axis, keep_maximum, host);
    } catch (const Fault &) {
        return Status::good; // every test of the boxes stands before the first step that can fail so
    }
}

void display_inversion_mesh(Setup & setup)
{
    InversionDefinition & definition = setup.definition;
    for (int axis = 0; axis < 3; ++axis) {
        const auto a = static_cast<std::size_t>(axis);
        count_cells(definition, a);
        show(setup, "Text_min_val", axis, definition.mesh_min[a]);
        show(setup, "Text_max_val", axis, definition.mesh_max[a]);
        show(setup, "Text_cell_size", axis, definition.mesh_cell_size[a]);
        show_count(setup, "Text_num_cells", axis, definition.mesh_cells[a]);
    }
    // The lower part's own count, not 0: this box is read again by the next check, which would lose the lower part silently.
    show_count(setup, "Text_num_cells", 3, definition.mesh_cells[3]);
    show_count(setup, "Text_num_cells", 4, add_counts(definition.mesh_cells[2], definition.mesh_cells[3]));
    setup.form("Text_min_val", 3).text = format_number(definition.mesh_min[3], "0.0");
    display_cell_counts(setup);
    show_ranges(setup);
}

Status build_design_mesh(Setup & setup, Host & host)
{
    const Status status = setup.refinement_mode == normal_mode
                              ? determine_inversion_mesh(setup.definition, setup.padding, setup.design_mesh)
                              : build_refined_mesh(setup, host);
    if (status != Status::good) return Status::bad;
    display_inversion_mesh(setup);
    return Status::good;
}
