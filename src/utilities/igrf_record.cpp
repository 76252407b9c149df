#include "utilities/igrf_record.h"
