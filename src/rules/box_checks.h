#pragma once

#include "rules/setup.h"
#include "support/status.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

/// What the number in a box must satisfy. NaN satisfies none.
enum class Limit { none, not_negative, positive, not_zero, at_least_one };

/// Where a checked number goes: nowhere, into a 32-bit field, or rounded into a count.
using BoxTarget = std::variant<std::monostate, float InversionDefinition::*, std::int32_t InversionDefinition::*>;

/// One box that must hold a number, or pass a test of its own, and what is said when it does not.
struct BoxCheck {
    const char * control;
    int index = 0;
    const char * not_numeric = ""; ///< empty: the text need not be a number
    Limit limit = Limit::none;
    const char * beyond_limit = "";
    BoxTarget target = {};
    std::string (*further)(const Setup & setup, int index) = nullptr; ///< tests what limits cannot say; empty when good
    bool (*counts)(const Setup & setup) = nullptr;                    ///< null: in every case
};

/// Boxes that are checked together, and when they are.
struct CheckGroup {
    std::span<const BoxCheck> boxes;
    bool (*counts)(const Setup & setup) = nullptr;         ///< null: in every case
    std::string (*jointly)(const Setup & setup) = nullptr; ///< a fault of them all, each of which is good
};

/// Shows the message that ends a check.
Status refuse(const std::string & message, Host & host);

/// True when a number satisfies the limit.
bool within(double number, Limit limit);
/// The leading number of a box.
double box_number(const Setup & setup, std::string_view control, int index = 0);

/// The message for what a box holds, empty when it is good.
std::string fault_of(const Setup & setup, const BoxCheck & check);
/// Whether a row or a group is of account with what is chosen.
template <class Checked>
bool counts(const Setup & setup, const Checked & checked)
{
    return checked.counts == nullptr || checked.counts(setup);
}

/// Checks one box; a good number goes to its field. Fails after one message.
Status check_box(Setup & setup, const BoxCheck & check, Host & host);
/// Checks boxes in order up to the first that fails.
Status check_boxes(Setup & setup, std::span<const BoxCheck> checks, Host & host);
/// Checks the boxes of a group and then what they make together.
Status check_group(Setup & setup, const CheckGroup & group, Host & host);
/// Checks groups in order up to the first that fails.
Status check_groups(Setup & setup, std::span<const CheckGroup> groups, Host & host);
