#pragma once

#include "form/form.h"

/// The form of the dialog that defines a coordinate transform.
Form make_transform_form();
