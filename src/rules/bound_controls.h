#pragma once

#include "rules/setup.h"

#include <string_view>

// Most controls are the view of one field of the record: a box of its number or text, a list of its position, a check of its
// truth. One table binds them, and showing and storing both walk it.

/// The controls that come and go together: as a definition file is taken over, and the tile controls by themselves.
enum class Block { parameters, observed_data, topography, mesh, tiles, description };

/// Shows the fields of a block in their controls.
void show_bound_controls(Setup & setup, Block block);

/// Takes what the user put into a control into its field. A box whose text is not a number leaves its field, as do the boxes
/// that only the check reads and controls that are bound to nothing.
/// Fails with an `OverflowFault` when the number is beyond its field.
void store_bound_control(Setup & setup, std::string_view control, int index);

/// Puts a text into a box as if the user had typed it.
void set_box(Setup & setup, std::string_view control, int index, std::string_view text);
