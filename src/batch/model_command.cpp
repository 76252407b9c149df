#include "batch/commands.h"
