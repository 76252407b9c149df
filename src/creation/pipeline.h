#pragma once

#include "creation/creation.h"
#include "host/host.h"
#include "support/status.h"

/// Writes the inversion folder: solver inputs, run scripts, weighting file, topography, mesh, model and observed data, in that
/// order.
///
/// mesh: the design mesh of the definition. folder: exists, with a "\" at its end. refined: what a tiled inversion refines; its
/// folder gets a folder and a script per tile besides. Bad, after one message that gives the fault's
/// words, when anything fails; stopped after the user's Stop. What has been written by then stays.
Status create_inversion(const ValidatedDefinition & definition, const UbcMesh & mesh, const std::string & folder, CreateMode mode,
                        Host & host, const Refined * refined = nullptr);
