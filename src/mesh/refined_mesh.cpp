#include "mesh/refined_mesh.h"
