#include "rules/file_boxes.h"
