#include "rules/validation.h"
