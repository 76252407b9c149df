#include "rules/mesh_boxes.h"
