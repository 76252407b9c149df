#include "model/mesh_reader.h"
