#pragma once

#include "rules/setup.h"
#include "support/status.h"

#include <optional>
#include <string>

/// Reads a mesh and makes it the base of a refined inversion: the form starts anew in refined mode, with the core of the mesh as
/// the volume to refine. Bad when the mesh cannot be read, after its reader's message; the mode is then as it was, but no base is
/// loaded.
Status start_refinement(Setup & setup, const std::string & mesh_file, Host & host);

/// Reads the model on the base mesh, where there is one, and says that refined mode is ready. Bad, after a message, when the mesh
/// is missing or the model cannot be read.
Status finish_refinement(Setup & setup, const std::optional<std::string> & model_file, Host & host);

/// The menu of modes: index 1 asks for a mesh and, optionally, the model on it, and starts a refined inversion; any other index
/// goes back to a simple one with a fresh form.
Status press_define_inversion_mode(Setup & setup, int index, Host & host);
