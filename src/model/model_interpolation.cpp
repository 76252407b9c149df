#include "model/model_interpolation.h"
