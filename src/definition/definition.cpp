#include "definition/definition.h"

void init_form_inversion_parameters(InversionDefinition & definition) { definition = InversionDefinition(); }
