#include "rules/tile_boxes.h"

#include "rules/box_groups.h"
#include "support/numbers.h"

namespace {

using Definition = InversionDefinition;

bool is_refined(const Setup & setup) { return setup.refinement_mode == 1; }

/// A blend as wide as the overlap passes, whatever the words say. An overlap that is no number is its own fault.
bool is_beyond_overlap(const Setup & setup, const char * blend)
{
    return is_numeric(setup.form["Text_tile_overlap"].text) && box_number(setup, blend) > box_number(setup, "Text_tile_overlap");
}

std::string wide_blend_fault(const Setup & setup, int)
{
    return is_beyond_overlap(setup, "Text_blend_overlap")
               ? "The number of x/y blend cells must be less than the number of x/y overlap cells"
               : "";
}

std::string wide_z_blend_fault(const Setup & setup, int)
{
    return is_beyond_overlap(setup, "Text_z_blend")
               ? "The number of z blend cells must be less than the number of x/y overlap cells"
               : "";
}

template <const char * const & box>
bool is_filled_in(const Setup & setup)
{
    return !setup.form[box].text.empty();
}

constexpr const char * x_tiles = "Text_number_x_tiles";
constexpr const char * y_tiles = "Text_number_y_tiles";

constexpr BoxCheck overlap_box = { "Text_tile_overlap",
                                   0,
                                   "The number of overlap cells is not valid",
                                   Limit::not_negative,
                                   "The number of overlap cells must be positive",
                                   &Definition::tile_overlap };
constexpr BoxCheck x_size_box = {
    "Text_x_tile_size", 0, "The X tile size is not valid", Limit::none, "", &Definition::tile_x_size
};
constexpr BoxCheck y_size_box = {
    "Text_y_tile_size", 0, "The Y tile size is not valid", Limit::none, "", &Definition::tile_y_size
};
constexpr BoxCheck blend_box = { "Text_blend_overlap",
                                 0,
                                 "The blend overlap is not valid",
                                 Limit::not_negative,
                                 "The number of blend cells must be positive",
                                 &Definition::tile_blend };
constexpr BoxCheck z_blend_box = { "Text_z_blend",
                                   0,
                                   "The z blend overlap is not valid",
                                   Limit::not_negative,
                                   "The number of z blend cells must be positive",
                                   &Definition::tile_z_blend };

/// A row as it is checked before anything is stored, and with a test more.
constexpr BoxCheck unstored(BoxCheck check, std::string (*further)(const Setup &, int) = nullptr)
{
    check.target = {};
    check.further = further;
    return check;
}

constexpr BoxCheck with(BoxCheck check, std::string (*further)(const Setup &, int))
{
    check.further = further;
    return check;
}

constexpr BoxCheck layout_boxes[] = {
    unstored(x_size_box),
    unstored(y_size_box),
    { x_tiles,
      0,
      "The number of X tiles is not valid",
      Limit::not_negative,
      "The number of X tiles must be positive",
      {},
      nullptr,
      &is_filled_in<x_tiles> },
    { y_tiles,
      0,
      "The number of Y tiles is not valid",
      Limit::not_negative,
      "The number of Y tiles must be positive",
      {},
      nullptr,
      &is_filled_in<y_tiles> },
    unstored(overlap_box),
    unstored(blend_box, &wide_blend_fault),
    unstored(z_blend_box, &wide_z_blend_fault),
};

template <const BoxCheck & box, const char * const & message>
std::string size_fault(const Setup & setup, int)
{
    return leading_count(setup.form[box.control].text) < 1 ? message : "";
}

constexpr const char * no_x_size = "The X tile size must be at least one cell";
constexpr const char * no_y_size = "The Y tile size must be at least one cell";

std::string narrow_overlap_fault(const Setup & setup, int index)
{
    const std::string fault = wide_blend_fault(setup, index);
    return fault.empty() ? wide_z_blend_fault(setup, index) : fault;
}

// Said of other boxes in the check of the layout, or by the building of the mesh behind it.
constexpr BoxCheck late_boxes[] = {
    with(unstored(overlap_box), &narrow_overlap_fault),
    with(unstored(x_size_box), &size_fault<x_size_box, no_x_size>),
    with(unstored(y_size_box), &size_fault<y_size_box, no_y_size>),
};
constexpr CheckGroup layout_groups[] = { { layout_boxes, &is_refined }, { late_boxes, &is_refined } };

/// Once more, against the whole number that the overlap has become.
template <const BoxCheck & box, const char * const & message>
std::string blend_fault(const Setup & setup, int)
{
    const std::string & overlap = setup.form["Text_tile_overlap"].text;
    return is_numeric(overlap) && box_number(setup, box.control) > leading_count(overlap) ? message : "";
}

constexpr const char * blend_beyond = "The number of blend cells must be less than the number of overlap cells";
constexpr const char * z_blend_beyond = "The number of z blend cells must be less than the number of overlap cells";

std::string lower_part_fault(const Setup & setup, int)
{
    return leading_count(setup.form("Text_num_cells", 3).text) >= 1
               ? "The use of multiplicative Z mesh cells is not supported for refinement inversions"
               : "";
}

constexpr BoxCheck definition_boxes[] = {
    overlap_box,
    x_size_box,
    y_size_box,
    with(blend_box, &blend_fault<blend_box, blend_beyond>),
    with(z_blend_box, &blend_fault<z_blend_box, z_blend_beyond>),
    { "Text_minimum_points", 0, "The minimum number of points per tile is not valid", Limit::not_negative,
      "The minimum number of points per tile must be positive", &Definition::tile_min_points },
    { "Text_num_cells", 3, "", Limit::none, "", {}, &lower_part_fault },
};
constexpr CheckGroup definition_groups[] = { { definition_boxes, &is_refined } };

}

std::span<const CheckGroup> tile_layout_groups() { return layout_groups; }
std::span<const CheckGroup> tile_definition_groups() { return definition_groups; }

Status check_tile_layout_boxes(Setup & setup, Host & host)
{
    for (const BoxCheck & check : layout_boxes) {
        if (!counts(setup, check)) return Status::bad; // an unfilled number of tiles ends it in silence
        if (check_box(setup, check, host) != Status::good) return Status::bad;
    }
    return Status::good;
}

Status check_tile_definitions(Setup & setup, Host & host) { return check_boxes(setup, definition_boxes, host); }
