#include "data/triangulation.h"
