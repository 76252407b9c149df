#include "utilities/transform_file.h"
