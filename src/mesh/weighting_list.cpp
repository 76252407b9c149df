#include "mesh/weighting_list.h"

#include "support/numbers.h"
#include "support/text.h"

namespace {

/// The number of the first item that fails, 0 when none does.
std::int32_t parse(std::string_view text, List<double> & items)
{
    List<double> parsed;
    for (bool more = !trim(text).empty(); more;) {
        const std::size_t comma = text.find(',');
        const std::string_view item = trim(text.substr(0, comma));
        if (!is_numeric(item) || !(leading_number(item) > 0)) return parsed.size() + 1;
        parsed.push_back(leading_number(item));
        more = comma != std::string_view::npos;
        if (more) text.remove_prefix(comma + 1);
    }
    items = parsed;
    return 0;
}

}

Status parse_weighting_list(std::string_view text, List<double> & items)
{
    return parse(text, items) == 0 ? Status::good : Status::bad;
}

Status parse_weighting_list(std::string_view text, List<double> & items, Dialogs & dialogs)
{
    const std::int32_t failed = parse(text, items);
    if (failed == 0) return Status::good;
    dialogs.message("The weighting definitions are not valid for weight " + general_text(failed));
    return Status::bad;
}
