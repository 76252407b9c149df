#pragma once

#include "form/form.h"

/// The form of the dialog that computes the earth's field.
Form make_igrf_form();
