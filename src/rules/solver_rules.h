#pragma once

#include "rules/setup.h"

// The rules of the choices that decide what is on offer: the method, the data types, and a variation run.

/// Stores the method chosen by the user, shows it, and sets what follows from it.
void change_method(Setup & setup);
/// Stores the data type chosen in list `index` by the user. The first type of the own solver brings its class's defaults into the
/// boxes that still hold the old ones.
void change_data_type(Setup & setup, int index);
/// Shows whether the run is a variation of an earlier one, and marks in green what may differ in it.
void show_variation(Setup & setup);
/// Shows the captions of the data columns by the data types.
void show_data_captions(Setup & setup);
