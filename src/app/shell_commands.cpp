#include "app/shell_commands.h"
