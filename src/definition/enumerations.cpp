#include "definition/enumerations.h"
