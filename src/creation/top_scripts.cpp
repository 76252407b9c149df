#include "creation/top_scripts.h"
