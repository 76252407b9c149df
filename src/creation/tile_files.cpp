#include "creation/creation.h"
