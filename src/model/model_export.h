#pragma once

#include "host/host.h"
#include "model/model_file.h"

/// Exports a model, in binary or as text; the user is asked which.
///
/// The binary file holds the values in file units, divided by `form.scale`, and nulls as they are in memory, at -1e32. Behind
/// "UBC" and the type follow the cells of a whole mesh x fastest, then y, then z, as the reader takes them; those of a smaller
/// window z fastest, then x, then y, as in text. model_type: 1 to 8. The text is that of `write_model_file`.
///
/// Fails with a `FileFault`.
void export_model(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                  std::int32_t model_type, const ModelText & form, Host & host);
