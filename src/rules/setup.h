#pragma once

#include "definition/validated_definition.h"
#include "form/form.h"
#include "host/host.h"
#include "mesh/mesh_design.h"

/// The inversion being set up: the form, the record behind it, and what has been derived from both.
struct Setup {
    Form form;
    InversionDefinition definition;   ///< kept current by the change rules; checked only in a `ValidatedDefinition`
    std::int32_t refinement_mode = 0; ///< the running state; what a file says does not change it
    bool loading = false;             ///< a definition is being applied: the defaulting rules do not run
    InUse in_use;
    Padding padding;
    UbcMesh design_mesh;
    PointTransform current_transform; ///< the transform in force for readers
};
