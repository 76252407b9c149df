#pragma once

#include "rules/setup.h"
#include "support/status.h"

#include <string_view>

/// Applies what leaving a mesh box does: a change of some size in a limit, a cell size or the lower part is taken into the
/// record, snapped and shown. False when the control is no mesh box.
bool leave_mesh_box(Setup & setup, std::string_view control, int index, Host & host);

/// The buttons "update": one axis (0 to 2), or all and the design mesh (3). Bad after the message of a box or of the build.
Status press_update(Setup & setup, int index, Host & host);
