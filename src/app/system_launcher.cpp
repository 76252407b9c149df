#include "app/system_launcher.h"
