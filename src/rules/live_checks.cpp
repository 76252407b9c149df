#include "rules/live_checks.h"
