#include "rules/layout_rules.h"
