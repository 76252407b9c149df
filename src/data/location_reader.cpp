#include "data/location_reader.h"
