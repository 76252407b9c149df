#include "rules/live_checks.h"

#include "mesh/weighting_list.h"
#include "rules/box_groups.h"
#include "rules/silent_host.h"
#include "support/fault.h"
#include "support/numbers.h"

#include <algorithm>

namespace {

bool writes_weights(const Setup & setup) { return setup.definition.create_weighting_file == 1; }

/// Found by the writing of the file and not by the check, but in the same words.
std::string weights_fault(const Setup & setup, int)
{
    SilentHost::HeldMessage held;
    List<double> weights;
    static_cast<void>(parse_weighting_list(setup.form["Text_weight_multipliers"].text, weights, held));
    return held.text;
}

constexpr BoxCheck weight_boxes[] = { { "Text_weight_multipliers", 0, "", Limit::none, "", {}, &weights_fault } };
constexpr CheckGroup weight_groups[] = { { weight_boxes, &writes_weights } };

/// Fails as the field does when the number is beyond it.
void try_field(const Setup & setup, const BoxCheck & check)
{
    const double number = box_number(setup, check.control, check.index);
    if (std::holds_alternative<float InversionDefinition::*>(check.target)) static_cast<void>(to_f32(number));
    if (std::holds_alternative<std::int32_t InversionDefinition::*>(check.target)) static_cast<void>(round_to_count(number));
}

bool is_good(const Setup & setup, const BoxCheck & check) { return !counts(setup, check) || fault_of(setup, check).empty(); }

std::string fault_in_group(const Setup & setup, const CheckGroup & group, std::string_view control, int index)
{
    if (!counts(setup, group)) return "";
    bool is_in_group = false;
    for (const BoxCheck & check : group.boxes) {
        if (check.control != control || check.index != index) continue;
        is_in_group = true;
        if (!counts(setup, check)) continue;
        if (std::string fault = fault_of(setup, check); !fault.empty()) return fault;
        try_field(setup, check);
    }
    if (!is_in_group || !group.jointly) return "";
    const bool all_good = std::ranges::all_of(group.boxes, [&](const BoxCheck & check) { return is_good(setup, check); });
    return all_good ? group.jointly(setup) : "";
}

}

std::string box_fault(const Setup & setup, std::string_view control, int index)
{
    const std::span<const CheckGroup> in_order[] = { mesh_box_groups(),  tile_layout_groups(),     data_file_groups(),
                                                     parameter_groups(), tile_definition_groups(), weight_groups };
    try {
        for (const std::span<const CheckGroup> groups : in_order)
            for (const CheckGroup & group : groups)
                if (std::string fault = fault_in_group(setup, group, control, index); !fault.empty()) return fault;
    } catch (const Fault & fault) {
        return fault.what(); // a number beyond its field
    }
    return "";
}
