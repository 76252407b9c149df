#pragma once

#include "rules/setup.h"

/// Compares the field of a definition of magnetic data with the reference field at the survey, where its place is known; without
/// a date, with the closest of the model's years. When they are more than 3 degrees or 2 % apart, one message says so: a warning,
/// for the field may be right for reasons of its own.
///
/// A field straight up or down is not compared: it is given on purpose for data that have been reduced to the pole or do not
/// depend on its direction.
void compare_field(const Setup & setup, Host & host);
