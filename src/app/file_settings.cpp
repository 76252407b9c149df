#include "app/file_settings.h"
