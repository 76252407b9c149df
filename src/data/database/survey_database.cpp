#include "data/database/survey_database.h"
