#include "rules/data_columns.h"
