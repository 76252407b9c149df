#include "rules/data_preview.h"
