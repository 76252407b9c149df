#include "rules/apply_definition.h"
