#pragma once

#include "host/dialogs.h"
#include "support/status.h"
#include "support/text_file.h"
#include "utilities/point_transform.h"

#include <string>

/// The three lines of a transform, CR LF behind each, as they stand in a definition file behind their heading.
std::string transform_block(const PointTransform & transform);
/// Reads those lines; fields that are not there keep what they held. The transform is normalised.
/// Fails with an `OverflowFault` for a number beyond a double.
void read_transform_block(TextFile & file, PointTransform & transform);

/// Writes a ".crd" file, whole or not at all. Fails with a `FileFault`.
void write_transform_file(const std::string & path, const PointTransform & transform);
/// Reads a ".crd" file. Bad, after one message and with the transform unchanged, when its points are too close together.
/// Fails with a `FileFault` when it cannot be opened, with an `OverflowFault` for a number beyond a double.
Status read_transform_file(const std::string & path, PointTransform & transform, Dialogs & dialogs);
