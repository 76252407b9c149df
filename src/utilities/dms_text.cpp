#include "utilities/dms_text.h"
