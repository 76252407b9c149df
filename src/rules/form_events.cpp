#include "rules/form_events.h"

#include "rules/change_rules.h"
#include "rules/data_columns.h"
#include "rules/file_boxes.h"
#include "rules/mesh_events.h"

#include <algorithm>

namespace {

constexpr std::string_view waiting_boxes[] = {
    "Text_data_locations", "Text_UBC_locations_nhead", "Text_UBC_locations_nstep", "Text_min_val",        "Text_max_val",
    "Text_cell_size",      "Text_num_cells",           "Text_iterations",          "Text_chi_factor",     "Text_subspace",
    "Text_x_tile_size",    "Text_y_tile_size",         "Text_number_x_tiles",      "Text_number_y_tiles", "Text_tile_overlap",
};

void close_column_names(Setup & setup)
{
    for (int slot : { 0, 1 }) setup.form("Combo_names", slot).visible = false;
    setup.active_column_box = 0;
}

}

bool waits_until_left(std::string_view control) { return std::ranges::find(waiting_boxes, control) != std::end(waiting_boxes); }

void form_left(Setup & setup, std::string_view control, int index, Host & host)
{
    if (leave_file_box(setup, control, index, host) || leave_mesh_box(setup, control, index, host)) return;
    if (waits_until_left(control)) form_changed(setup, control, index, host);
}

void form_entered(Setup & setup, std::string_view control, int index)
{
    if (control == "Combo_names") return; // the list itself
    close_column_names(setup);
    open_column_names(setup, control, index);
}
