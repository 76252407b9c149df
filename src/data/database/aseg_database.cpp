#include "data/database/aseg_database.h"
