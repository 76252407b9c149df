#include "data/observed_processing.h"
