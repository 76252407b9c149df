#include "rules/setup.h"
