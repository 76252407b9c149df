#include "data/database/xyz_database.h"
