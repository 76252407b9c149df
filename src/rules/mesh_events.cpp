#include "rules/mesh_events.h"
