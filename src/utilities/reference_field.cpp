#include "utilities/reference_field.h"
