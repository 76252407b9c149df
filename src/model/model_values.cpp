#include "model/model_reader.h"
