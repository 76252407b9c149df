#include "model/mesh_file.h"
