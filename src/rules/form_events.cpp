#include "rules/form_events.h"
