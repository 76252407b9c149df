#pragma once

#include "rules/setup.h"
#include "support/status.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

/// What the number in a box must satisfy. NaN satisfies none.
enum class Limit { none, not_negative, positive, not_zero };

/// Where a checked number goes: nowhere, into a 32-bit field, or rounded into a count.
using BoxTarget = std::variant<std::monostate, float InversionDefinition::*, std::int32_t InversionDefinition::*>;

/// One box that must hold a number, and what is said when it does not.
struct BoxCheck {
    const char * control;
    int index = 0;
    const char * not_numeric = "";
    Limit limit = Limit::none;
    const char * beyond_limit = "";
    BoxTarget target = {};
};

/// Shows the message that ends a check.
Status refuse(const std::string & message, Host & host);

/// True when a number satisfies the limit.
bool within(double number, Limit limit);
/// The leading number of a box.
double box_number(const Setup & setup, std::string_view control, int index = 0);

/// Checks one box; a good number goes to its field. Fails after one message.
Status check_box(Setup & setup, const BoxCheck & check, Host & host);
/// Checks boxes in order up to the first that fails.
Status check_boxes(Setup & setup, std::span<const BoxCheck> checks, Host & host);
