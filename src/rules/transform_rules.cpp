#include "rules/transform_rules.h"
