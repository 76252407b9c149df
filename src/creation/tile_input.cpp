#include "creation/solver_inputs.h"
