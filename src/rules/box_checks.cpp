#include "rules/box_checks.h"

#include "support/numbers.h"

namespace {

void store(Setup & setup, const BoxCheck & check)
{
    const std::string & text = setup.form(check.control, check.index).text;
    if (const auto * field = std::get_if<float InversionDefinition::*>(&check.target))
        setup.definition.** field = to_f32(leading_number(text));
    else if (const auto * count = std::get_if<std::int32_t InversionDefinition::*>(&check.target))
        setup.definition.** count = leading_count(text);
}

}

Status refuse(const std::string & message, Host & host)
{
    host.dialogs.message(message);
    return Status::bad;
}

bool within(double number, Limit limit)
{
    switch (limit) {
    case Limit::not_negative:
        return number >= 0;
    case Limit::positive:
        return number > 0;
    case Limit::not_zero:
        return number < 0 || number > 0;
    case Limit::at_least_one:
        return number >= 1;
    case Limit::none:
        break;
    }
    return true;
}

double box_number(const Setup & setup, std::string_view control, int index)
{
    return leading_number(setup.form(control, index).text);
}

std::string fault_of(const Setup & setup, const BoxCheck & check)
{
    const std::string & text = setup.form(check.control, check.index).text;
    if (*check.not_numeric != 0) {
        if (!is_numeric(text)) return check.not_numeric;
        if (!within(leading_number(text), check.limit)) return check.beyond_limit;
    }
    return check.further ? check.further(setup, check.index) : "";
}

Status check_box(Setup & setup, const BoxCheck & check, Host & host)
{
    if (!counts(setup, check)) return Status::good;
    if (const std::string fault = fault_of(setup, check); !fault.empty()) return refuse(fault, host);
    store(setup, check);
    return Status::good;
}

Status check_boxes(Setup & setup, std::span<const BoxCheck> checks, Host & host)
{
    for (const BoxCheck & check : checks)
        if (check_box(setup, check, host) != Status::good) return Status::bad;
    return Status::good;
}

Status check_group(Setup & setup, const CheckGroup & group, Host & host)
{
    if (!counts(setup, group)) return Status::good;
    if (check_boxes(setup, group.boxes, host) != Status::good) return Status::bad;
    const std::string fault = group.jointly ? group.jointly(setup) : "";
    return fault.empty() ? Status::good : refuse(fault, host);
}

Status check_groups(Setup & setup, std::span<const CheckGroup> groups, Host & host)
{
    for (const CheckGroup & group : groups)
        if (check_group(setup, group, host) != Status::good) return Status::bad;
    return Status::good;
}
