#pragma once

#include "form/form.h"
#include "host/host.h"
#include "support/status.h"
#include "utilities/point_transform.h"

/// The dialog that defines a coordinate transform: its form, the record behind it and the page that is shown.
struct TransformSetup {
    Form form;
    PointTransform transform;
    int page = 0; ///< 0 parameters, 1 two points
};

/// The dialog's form, showing a transform on the page that it was defined on.
TransformSetup open_transform(const PointTransform & transform);

/// Applies the page to the record. Bad, after one message, with the record as it was.
Status apply_transform_page(TransformSetup & setup, Host & host);
/// Goes to another page, after applying the one that is left; a page that fails stays.
Status change_transform_page(TransformSetup & setup, int page, Host & host);
/// Resets, inverts, loads or saves by the name of the command, and shows the transform: "Command_reset",
/// "Command_invert_transform", "Command_load_transform_file", "Command_save_transform_file". Saving applies the page first.
/// Fails with a `FileFault` for a file that cannot be read or written.
Status press_transform(TransformSetup & setup, std::string_view command, Host & host);
