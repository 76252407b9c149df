#include "rules/layout_rules.h"

#include "rules/mesh_boxes.h"
#include "rules/tile_choice.h"
#include "rules/validation.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr int totals_panel = 2, x_panel = 3, y_panel = 4, place_panel = 5;

bool is_refined(const Setup & setup) { return setup.refinement_mode == 1; }

void set_panel(Setup & setup, int panel, std::string text) { setup.form("StatusBar_coords", panel).text = std::move(text); }

/// Cells in x and y. A refined mesh has those of its base around it, which the padding of the form does not tell.
void show_totals(Setup & setup)
{
    static_cast<void>(calculate_cell_counts(setup.definition, setup.padding)); // a list that does not parse keeps its last items
    const auto & total = is_refined(setup) ? setup.design_mesh.total_cells : setup.padding.total_cells;
    set_panel(setup, totals_panel, format_number(total[0], "0") + "," + format_number(total[1], "0"));
}

void set_clip_tool_tips(Setup & setup)
{
    const char * const overlap = "Increase/decrease the tile overlap";
    setup.form("UpDown_clip", 10).tool_tip = is_refined(setup) ? overlap : "Shift the min and max x location";
    setup.form("UpDown_clip", 11).visible = !is_refined(setup); // it would do just the same
    setup.form("UpDown_clip", 11).tool_tip = is_refined(setup) ? overlap : "Shift the min and max y location";
}

void open_frame(Setup & setup, bool paused)
{
    set_clip_tool_tips(setup);
    for (const int panel : { x_panel, y_panel, place_panel }) set_panel(setup, panel, "");
    setup.form["Tab_inversion"].visible = false;
    setup.form["Frame_tiling_layout"].visible = true;
    setup.form["Command_done_tiling_layout"].visible = !paused;
    for (const char * button : { "Command_continue_tile", "Command_cancel_tile" }) setup.form[button].visible = paused;
}

/// What one pair of up/down buttons moves.
struct Clip {
    int index;
    std::size_t axis;
    bool minimum, maximum;
};

constexpr Clip clips[] = {
    { 0, 0, true, false }, { 4, 0, true, false }, { 1, 0, false, true }, { 5, 0, false, true }, { 10, 0, true, true },
    { 2, 1, true, false }, { 6, 1, true, false }, { 3, 1, false, true }, { 7, 1, false, true }, { 11, 1, true, true },
};

bool redraws(int index) { return index < 4 || index >= 10; }

/// Cells by which a limit moves: in refined mode those of a base cell, so that it stays on a node of the base mesh.
std::int32_t clip_step(const Setup & setup, std::size_t axis)
{
    if (!is_refined(setup)) return 1;
    const UbcMesh & base = setup.base.mesh;
    const double size = axis == 0 ? base.core_size_x : base.core_size_y;
    return std::max(1, round_to_count(size / setup.definition.mesh_cell_size[axis]));
}

/// Moves the limits of the record. False when too few cells would be left, and nothing has moved.
bool move_limits(Setup & setup, const Clip & clip, bool up)
{
    const std::int32_t step = clip_step(setup, clip.axis);
    std::int32_t & cells = setup.definition.mesh_cells[clip.axis];
    double & low = setup.definition.mesh_min[clip.axis];
    double & high = setup.definition.mesh_max[clip.axis];
    const double size = setup.definition.mesh_cell_size[clip.axis];
    if (clip.minimum && clip.maximum) {
        low += (up ? step : -step) * size;
        high = cells * size + low;
        return true;
    }
    const bool shrinks = up == clip.minimum;
    if (shrinks && cells <= step) return false;
    cells = add_counts(cells, shrinks ? -step : step);
    if (clip.minimum)
        low = high - cells * size;
    else
        high = cells * size + low;
    return true;
}

/// The mesh on the limits as they have moved. Where the base mesh does not allow them they go back.
void rebuild(Setup & setup, const InversionDefinition & before, Host & host)
{
    try {
        if (build_design_mesh(setup, host) == Status::good) return;
        if (is_refined(setup)) setup.definition = before;
    } catch (const Fault &) {
        setup.definition = before;
        display_inversion_mesh(setup);
        throw;
    }
    display_inversion_mesh(setup);
}

void shift_limits(Setup & setup, const Clip & clip, bool up, Host & host)
{
    const auto & sizes = setup.definition.mesh_cell_size;
    if (!(sizes[0] > 0 && sizes[1] > 0 && sizes[2] > 0)) return; // nothing has been defined yet
    const InversionDefinition before = setup.definition;
    if (!move_limits(setup, clip, up)) return;
    rebuild(setup, before, host);
    show_outer_limits(setup);
    show_totals(setup);
}

void shift_overlap(Setup & setup, bool up)
{
    std::int32_t & overlap = setup.definition.tile_overlap;
    overlap = add_counts(overlap, up ? 1 : -1);
    setup.form["Text_tile_overlap"].text = format_number(overlap, "0");
    show_totals(setup);
}

}

LayoutSource layout_source(const Setup & setup)
{
    return { setup.definition, setup.design_mesh, is_refined(setup) ? &setup.tiles : nullptr };
}

ViewLimits layout_limits(const Setup & setup)
{
    const std::int32_t position = setup.form["Combo_view_limits"].position;
    if (position <= 0) return ViewLimits::whole;
    return position == 2 && is_refined(setup) ? ViewLimits::refined : ViewLimits::core;
}

Status display_tiling_layout(Setup & setup, bool keep_view, Host & host)
{
    if (!keep_view) {
        std::optional<ValidatedDefinition> checked;
        if (check_inversion_definitions(setup, checked, host) != Status::good) return Status::bad;
    } else {
        choose_position(setup.form["Combo_view_limits"], 0);
    }
    // Without tiles there is nothing to do in that frame.
    setup.form["Frame_do_tile"].visible = keep_view && is_refined(setup);
    show_totals(setup);
    return Status::good;
}

Status press_view_tiling(Setup & setup, Host & host)
{
    if (display_tiling_layout(setup, false, host) != Status::good) return Status::bad;
    open_frame(setup, false);
    return Status::good;
}

void pause_in_tiling_layout(Setup & setup, Host & host)
{
    static_cast<void>(display_tiling_layout(setup, true, host)); // checks nothing
    open_frame(setup, true);
}

void press_done_tiling_layout(Setup & setup)
{
    for (const char * frame : { "Frame_tiling_layout", "Frame_do_tile" }) setup.form[frame].visible = false;
    setup.form["Tab_inversion"].visible = true;
}

void press_clip(Setup & setup, int index, bool up, Host & host)
{
    const auto clip = std::ranges::find(clips, index, &Clip::index);
    if (clip == std::end(clips)) return;
    if (is_refined(setup) && index >= 10)
        shift_overlap(setup, up);
    else
        shift_limits(setup, *clip, up, host);
    if (redraws(index)) static_cast<void>(display_tiling_layout(setup, true, host));
}

void point_at(Setup & setup, double x, double y)
{
    set_panel(setup, x_panel, format_number(x, "0.0"));
    set_panel(setup, y_panel, format_number(y, "0.0"));
    set_panel(setup, place_panel, place_at(layout_source(setup), x, y).text);
}

/// Outside the tiles the frame stays as it is: in the pause it holds the order of the tiles too.
void choose_at(Setup & setup, double x, double y)
{
    if (!is_refined(setup)) return;
    const bool shown = setup.form["Frame_do_tile"].visible;
    select_tile(setup, place_at(layout_source(setup), x, y).tile);
    setup.form["Frame_do_tile"].visible |= shown;
}
