#include "utilities/point_transform.h"
