#include "creation/tile_scripts.h"
