#include "mesh/complete_mesh.h"
