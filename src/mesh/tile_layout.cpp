#include "mesh/tile_layout.h"
