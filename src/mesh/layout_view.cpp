#include "mesh/layout_view.h"
