#pragma once

#include "host/dialogs.h"
#include "support/file_writer.h"
#include "support/status.h"
#include "support/text_file.h"
#include "utilities/point_transform.h"

#include <string>

/// Writes the three lines of a transform as they stand in a definition file behind their heading.
void write_transform_block(FileWriter & file, const PointTransform & transform);
/// Reads those lines; fields that are not there keep what they held. The transform is normalised.
void read_transform_block(TextFile & file, PointTransform & transform);

/// Writes a ".crd" file. Fails with a `FileFault`.
void write_transform_file(const std::string & path, const PointTransform & transform);
/// Reads a ".crd" file. Bad, after one message and with the transform unchanged, when its points are too close together.
/// Fails with a `FileFault` when it cannot be opened.
Status read_transform_file(const std::string & path, PointTransform & transform, Dialogs & dialogs);
