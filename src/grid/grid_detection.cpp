#include "grid/grid_detection.h"
