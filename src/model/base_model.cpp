#include "model/base_model.h"
