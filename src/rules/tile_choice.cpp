#include "rules/tile_choice.h"

#include "rules/bound_controls.h"
#include "support/pattern.h"

void select_tile(Setup & setup, Tile tile)
{
    const bool selected = setup.tiles.has(tile);
    setup.selected_tile = selected ? tile : Tile();
    setup.form["Frame_do_tile"].visible = selected;
    Control & box = setup.form["Check_do_tile"];
    box.enabled = selected;
    if (!selected) {
        box.caption = "Skip Tile";
        box.on = false;
        return;
    }
    box.caption = "Skip Tile X" + format_number(tile.x, "00") + " Y" + format_number(tile.y, "00");
    box.on = setup.tiles.is_skipped(tile);
}

bool take_skipped_tile(Setup & setup)
{
    const bool skip = setup.form["Check_do_tile"].on;
    const Tile tile = setup.selected_tile;
    if (!setup.tiles.has(tile) || skip == setup.tiles.is_skipped(tile)) return false;
    setup.tiles.tile_skipped[setup.tiles.number_of(tile)] = skip ? 1 : 0;
    return true;
}

void take_tile_order(Setup & setup, int index)
{
    store_bound_control(setup, "Combo_tile_order", index);
    setup.tiles.tile_order = setup.definition.tile_order;
}
