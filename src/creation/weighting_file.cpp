#include "creation/weighting_file.h"
