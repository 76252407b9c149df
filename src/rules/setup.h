#pragma once

#include "definition/validated_definition.h"
#include "form/form.h"
#include "host/host.h"
#include "mesh/mesh_design.h"
#include "mesh/tile_layout.h"
#include "model/base_model.h"

/// The inversion being set up: the form, the record behind it, and what has been derived from both.
struct Setup {
    Form form;
    InversionDefinition definition;   ///< kept current by the change rules; checked only in a `ValidatedDefinition`
    std::int32_t refinement_mode = 0; ///< the running state; what a file says does not change it
    bool loading = false;             ///< a definition is being applied: the defaulting rules do not run
    std::array<std::int32_t, 2> column_name_count = {}; ///< names held for the columns of slots 0 and 1
    int active_column_box = 0;                          ///< code of the box whose list of names is open, 0 none
    InUse in_use;
    Padding padding;
    UbcMesh design_mesh;
    BaseModel base;     ///< what is refined; empty in simple mode
    TileLayout tiles;   ///< of the design mesh, in refined mode
    Tile selected_tile; ///< 0, 0 when none is
};
