#include "mesh/mesh_design.h"
