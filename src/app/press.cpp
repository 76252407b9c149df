#include "app/press.h"
