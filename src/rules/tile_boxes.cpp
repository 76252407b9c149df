#include "rules/tile_boxes.h"

#include "rules/box_checks.h"
#include "support/numbers.h"

namespace {

using Definition = InversionDefinition;

constexpr const char * overlap_not_valid = "The number of overlap cells is not valid";
constexpr const char * overlap_negative = "The number of overlap cells must be positive";
constexpr const char * blend_not_valid = "The blend overlap is not valid";
constexpr const char * blend_negative = "The number of blend cells must be positive";
constexpr const char * z_blend_not_valid = "The z blend overlap is not valid";
constexpr const char * z_blend_negative = "The number of z blend cells must be positive";

/// One box of the layout. An unfilled number of tiles ends the check in silence.
struct LayoutBox {
    const char * control;
    bool silent_when_empty = false;
    const char * not_numeric = "";
    Limit limit = Limit::none;
    const char * beyond_limit = "";
    const char * beyond_overlap = nullptr;
};

constexpr LayoutBox layout_boxes[] = {
    { "Text_x_tile_size", false, "The X tile size is not valid" },
    { "Text_y_tile_size", false, "The Y tile size is not valid" },
    { "Text_number_x_tiles", true, "The number of X tiles is not valid", Limit::not_negative,
      "The number of X tiles must be positive" },
    { "Text_number_y_tiles", true, "The number of Y tiles is not valid", Limit::not_negative,
      "The number of Y tiles must be positive" },
    { "Text_tile_overlap", false, overlap_not_valid, Limit::not_negative, overlap_negative },
    { "Text_blend_overlap", false, blend_not_valid, Limit::not_negative, blend_negative,
      "The number of x/y blend cells must be less than the number of x/y overlap cells" },
    { "Text_z_blend", false, z_blend_not_valid, Limit::not_negative, z_blend_negative,
      "The number of z blend cells must be less than the number of x/y overlap cells" },
};

}

Status check_tile_layout_boxes(const Setup & setup, Host & host)
{
    for (const LayoutBox & box : layout_boxes) {
        const std::string & text = setup.form[box.control].text;
        if (box.silent_when_empty && text.empty()) return Status::bad;
        if (!is_numeric(text)) return refuse(box.not_numeric, host);
        const double number = leading_number(text);
        if (!within(number, box.limit)) return refuse(box.beyond_limit, host);
        // A blend as wide as the overlap passes, whatever the words say.
        if (box.beyond_overlap != nullptr && number > box_number(setup, "Text_tile_overlap"))
            return refuse(box.beyond_overlap, host);
    }
    return Status::good;
}

Status check_tile_definitions(Setup & setup, Host & host)
{
    const BoxCheck sizes[] = {
        { "Text_tile_overlap", 0, overlap_not_valid, Limit::not_negative, overlap_negative, &Definition::tile_overlap },
        { "Text_x_tile_size", 0, "The X tile size is not valid", Limit::none, "", &Definition::tile_x_size },
        { "Text_y_tile_size", 0, "The Y tile size is not valid", Limit::none, "", &Definition::tile_y_size },
    };
    const BoxCheck blends[] = {
        { "Text_blend_overlap", 0, blend_not_valid, Limit::not_negative, blend_negative, &Definition::tile_blend },
        { "Text_z_blend", 0, z_blend_not_valid, Limit::not_negative, z_blend_negative, &Definition::tile_z_blend },
    };
    const char * const beyond_overlap[] = { "The number of blend cells must be less than the number of overlap cells",
                                            "The number of z blend cells must be less than the number of overlap cells" };
    const BoxCheck points = { "Text_minimum_points",
                              0,
                              "The minimum number of points per tile is not valid",
                              Limit::not_negative,
                              "The minimum number of points per tile must be positive",
                              &Definition::tile_min_points };

    if (check_boxes(setup, sizes, host) != Status::good) return Status::bad;
    for (std::size_t i = 0; i < 2; ++i) {
        BoxCheck unstored = blends[i];
        unstored.target = {};
        if (check_box(setup, unstored, host) != Status::good) return Status::bad;
        if (box_number(setup, blends[i].control) > setup.definition.tile_overlap) return refuse(beyond_overlap[i], host);
        if (check_box(setup, blends[i], host) != Status::good) return Status::bad;
    }
    if (check_box(setup, points, host) != Status::good) return Status::bad;
    if (setup.definition.mesh_cells[3] >= 1)
        return refuse("The use of multiplicative Z mesh cells is not supported for refinement inversions", host);
    return Status::good;
}
