#include "data/database/geosoft_database.h"
