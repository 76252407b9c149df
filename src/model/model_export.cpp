#include "model/model_file.h"
