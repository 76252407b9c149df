#include "mesh/weighting_list.h"
