#include "data/topography.h"
