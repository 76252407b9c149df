#pragma once

#include "fakes/case_table.h"
#include "fakes/temporary_folder.h"
#include "utilities/transform_file.h"

/// Reads the lines of a block, " / " between them, over a transform.
inline PointTransform transform_of(const std::string & lines, PointTransform transform = {})
{
    const TemporaryFolder folder;
    TextFile file(folder.write("block", file_of(lines)));
    read_transform_block(file, transform);
    return transform;
}
