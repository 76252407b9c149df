#include "model/base_mesh_writer.h"
