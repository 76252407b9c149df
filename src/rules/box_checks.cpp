#include "rules/box_checks.h"

#include "support/numbers.h"

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
    case Limit::none:
        break;
    }
    return true;
}

double box_number(const Setup & setup, std::string_view control, int index)
{
    return leading_number(setup.form(control, index).text);
}

Status check_box(Setup & setup, const BoxCheck & check, Host & host)
{
    const std::string & text = setup.form(check.control, check.index).text;
    if (!is_numeric(text)) return refuse(check.not_numeric, host);
    const double number = leading_number(text);
    if (!within(number, check.limit)) return refuse(check.beyond_limit, host);
    if (const auto * field = std::get_if<float InversionDefinition::*>(&check.target))
        setup.definition.** field = to_f32(number);
    else if (const auto * count = std::get_if<std::int32_t InversionDefinition::*>(&check.target))
        setup.definition.** count = round_to_count(number);
    return Status::good;
}

Status check_boxes(Setup & setup, std::span<const BoxCheck> checks, Host & host)
{
    for (const BoxCheck & check : checks)
        if (check_box(setup, check, host) != Status::good) return Status::bad;
    return Status::good;
}
