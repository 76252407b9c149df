#include "data/database/database_points.h"
