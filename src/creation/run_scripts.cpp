#include "creation/run_scripts.h"
