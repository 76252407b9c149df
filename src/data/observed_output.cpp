#include "data/observed_output.h"
