#include "app/start_command.h"
