#pragma once

#include "definition/definition.h"
#include "rules/bound_controls.h"

/// Copies the fields of one block from one record to another; the rest of `to` stays.
void copy_block(const InversionDefinition & from, Block block, InversionDefinition & to);

/// Puts the mesh of a record right: limits in order, a cell size for each axis, limits on whole cells, and the bottom of the
/// lower part; and the fields with it that no control could show.
void repair_mesh(InversionDefinition & definition);
/// Puts the inversion parameters right that no control could show.
void repair_parameters(InversionDefinition & definition);
/// Gives the error fields their defaults when both are 0, and a scale of 0 becomes 1.
void repair_observed_data(InversionDefinition & definition);
/// Puts the topography fields right that no control could show.
void repair_topography(InversionDefinition & definition);
/// Puts the tile fields right that no control could show.
void repair_tiles(InversionDefinition & definition);
