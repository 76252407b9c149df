#include "mesh/expanded_mesh.h"
