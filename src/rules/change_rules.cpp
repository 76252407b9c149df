#include "rules/change_rules.h"
