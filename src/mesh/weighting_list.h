#pragma once

#include "host/dialogs.h"
#include "support/list.h"
#include "support/status.h"

#include <string_view>

/// Parses a comma-separated list of numbers above 0. An empty text is an empty list.
/// Bad when an item fails, with `items` as it was. With `dialogs` a message names the number of the item.
Status parse_weighting_list(std::string_view text, List<double> & items);
Status parse_weighting_list(std::string_view text, List<double> & items, Dialogs & dialogs);
