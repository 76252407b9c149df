#pragma once

#include "form/form.h"

/// The main form with all its controls, as it stands before any definition is applied to it.
Form make_main_form();
