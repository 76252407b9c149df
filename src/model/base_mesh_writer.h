#pragma once

#include "host/dialogs.h"
#include "mesh/ubc_mesh.h"

#include <string>

/// Which part of a mesh is written. A reduced axis has a cell around each inner node: one cell less, as wide as the mean of the
/// two it touches.
enum class MeshPart { all = 0, core = 1, reduced_x = -1, reduced_y = -2, reduced_z = -3 };

/// Writes a mesh that was read from a file, or a part of it, without runs. An existing file is replaced, after a question when
/// the part is a whole or core one. quiet: no word at the end. Fails with a `FileFault`.
void write_base_mesh(bool quiet, const std::string & path, MeshPart part, const UbcMesh & mesh, Dialogs & dialogs);
