#include "definition/definition_file.h"
