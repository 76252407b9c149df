#include "mesh/layout_view.h"

#include "support/missing.h"
#include "support/numbers.h"
#include "support/pattern.h"

#include <array>
#include <cmath>

namespace {

constexpr double margin = 10; // of the picture, in its units, and of a turned range, in metres

bool has_mesh(const LayoutSource & source) { return source.mesh.nodes_x.size() > 1 && source.mesh.nodes_y.size() > 1; }

Extents whole_mesh(const UbcMesh & mesh)
{
    return { mesh.nodes_x[1], mesh.nodes_x[mesh.nodes_x.size()], mesh.nodes_y[1], mesh.nodes_y[mesh.nodes_y.size()] };
}

Extents core_of(const UbcMesh & mesh)
{
    return { mesh.nodes_x[mesh.core_x_first], mesh.nodes_x[mesh.core_x_last], mesh.nodes_y[mesh.core_y_first],
             mesh.nodes_y[mesh.core_y_last] };
}

Extents mesh_extents(const LayoutSource & source, ViewLimits limits)
{
    if (limits == ViewLimits::whole) return whole_mesh(source.mesh);
    if (limits == ViewLimits::core || source.tiles == nullptr) return core_of(source.mesh);
    const InversionDefinition & definition = source.definition;
    return { definition.mesh_min[0], definition.mesh_max[0], definition.mesh_min[1], definition.mesh_max[1] };
}

/// How lines are drawn; dots are only seen as such in a thin line.
struct Pen {
    std::int32_t colour;
    int style, width;
};

constexpr Pen frame_pen = { layout_black, 0, 1 }, mesh_pen = { layout_red, 0, 2 }, overlap_pen = { layout_blue, 2, 1 };

class Drawing {
public:
    explicit Drawing(const LayoutSource & source) : source_(source) {}

    /// One line between two points of the mesh.
    void draw_mesh_line(double x1, double x2, double y1, double y2, const Pen & pen)
    {
        mesh_to_map(source_.definition.coordinate_transform, x1, y1);
        mesh_to_map(source_.definition.coordinate_transform, x2, y2);
        lines_.push_back({ x1, y1, x2, y2, pen.colour, pen.style, pen.width });
    }
    void draw_sides(const Extents & box, const Pen & pen)
    {
        draw_mesh_line(box.west, box.east, box.south, box.south, pen);
        draw_mesh_line(box.east, box.east, box.south, box.north, pen);
        draw_mesh_line(box.east, box.west, box.north, box.north, pen);
        draw_mesh_line(box.west, box.west, box.north, box.south, pen);
    }
    void draw_cross(const Extents & box, const Pen & pen)
    {
        draw_mesh_line(box.west, box.east, box.south, box.north, pen);
        draw_mesh_line(box.west, box.east, box.north, box.south, pen);
    }
    /// The frame lies along the sides of the picture, however the mesh is turned.
    void draw_frame(const Extents & shown)
    {
        const std::array<std::array<double, 4>, 4> sides = { { { shown.west, shown.south, shown.east, shown.south },
                                                               { shown.east, shown.south, shown.east, shown.north },
                                                               { shown.east, shown.north, shown.west, shown.north },
                                                               { shown.west, shown.north, shown.west, shown.south } } };
        for (const auto & [x1, y1, x2, y2] : sides)
            lines_.push_back({ x1, y1, x2, y2, frame_pen.colour, frame_pen.style, frame_pen.width });
    }
    void draw_tiles(const TileLayout & tiles)
    {
        if (tiles.tile_x_cells.empty() || tiles.tile_y_cells.empty()) return;
        const auto & x = tiles.tile_x_cells;
        const auto & y = tiles.tile_y_cells;
        draw_sides(box_of(x[1].first, x[x.size()].end, y[1].first, y[y.size()].end), mesh_pen);
        for (const Tile tile : all_tiles(tiles)) {
            const TileBounds &along_x = tiles.x_of(tile), &along_y = tiles.y_of(tile);
            const Extents own = box_of(along_x.own_first, along_x.own_end, along_y.own_first, along_y.own_end);
            draw_sides(own, mesh_pen);
            draw_sides(box_of(along_x.first, along_x.end, along_y.first, along_y.end), overlap_pen);
            if (tiles.is_skipped(tile)) draw_cross(own, mesh_pen);
        }
    }
    std::vector<LayoutLine> lines() { return std::move(lines_); }

private:
    Extents box_of(std::int32_t west, std::int32_t east, std::int32_t south, std::int32_t north) const
    {
        const UbcMesh & mesh = source_.mesh;
        return { mesh.nodes_x[west], mesh.nodes_x[east], mesh.nodes_y[south], mesh.nodes_y[north] };
    }

    const LayoutSource & source_;
    std::vector<LayoutLine> lines_;
};

/// The tile whose own part, or the gap before it, holds a cell; 0 before the first and behind the last.
std::int32_t tile_with(const List<TileBounds> & tiles, std::int32_t cell)
{
    if (tiles.empty() || cell < tiles[1].own_first) return 0;
    for (std::int32_t k = 1; k <= tiles.size(); ++k)
        if (cell < tiles[k].own_end) return k;
    return 0;
}

/// The cell of an axis at a position, 0 outside.
std::int32_t cell_at(const List<double> & nodes, double position)
{
    if (!std::isfinite(position) || nodes.size() < 2) return 0;
    const std::int32_t cell = interval_of(nodes, position);
    return cell < nodes.size() ? cell : 0;
}

std::string tile_text(const TileLayout & tiles, Tile tile)
{
    const auto cells = [](const TileBounds & bounds) { return format_number(bounds.end - bounds.first, "0"); };
    return " T" + format_number(tile.x, "00") + format_number(tile.y, "00") + " " + cells(tiles.x_of(tile)) + " x " +
           cells(tiles.y_of(tile));
}

}

std::optional<Extents> shown_extents(const LayoutSource & source, ViewLimits limits)
{
    if (!has_mesh(source)) return std::nullopt;
    const PointTransform & transform = source.definition.coordinate_transform;
    Extents shown = mesh_extents(source, limits);
    if (!transform.in_use) return shown;
    shown = rotated_extents(transform, TransformDirection::inverse, shown);
    return Extents{ shown.west - margin, shown.east + margin, shown.south - margin, shown.north + margin };
}

std::optional<LayoutView> fit_view(const Extents & shown, double width, double height)
{
    const double x_range = shown.east - shown.west, y_range = shown.north - shown.south;
    if (!(x_range > 0) || !(y_range > 0) || !std::isfinite(x_range) || !std::isfinite(y_range)) return std::nullopt;
    if (!(width > 2 * margin) || !(height > 2 * margin)) return std::nullopt;
    LayoutView view = { shown.west, shown.east, shown.south, shown.north, 1, margin, margin };
    const double a = x_range / y_range;
    if (a < width / height)
        view.view_left = to_f32((width - (height - 2 * margin) * a) / 2);
    else
        view.view_top = to_f32((height - (width - 2 * margin) / a) / 2);
    view.view_scale = to_f32((width - 2 * static_cast<double>(view.view_left)) / x_range);
    if (!(view.view_scale > 0)) return std::nullopt;
    return view;
}

std::vector<LayoutLine> layout_lines(const LayoutSource & source, ViewLimits limits)
{
    if (!has_mesh(source)) return {};
    Drawing drawing(source);
    if (limits == ViewLimits::whole) drawing.draw_frame(*shown_extents(source, limits));
    drawing.draw_sides(whole_mesh(source.mesh), mesh_pen);
    if (source.tiles == nullptr)
        drawing.draw_sides(core_of(source.mesh), mesh_pen);
    else
        drawing.draw_tiles(*source.tiles);
    return drawing.lines();
}

void to_picture(const LayoutView & view, double & x, double & y)
{
    const auto scale = static_cast<double>(view.view_scale);
    x = (x - view.view_x_min) * scale + static_cast<double>(view.view_left);
    y = (view.view_y_max - y) * scale + static_cast<double>(view.view_top);
}

void to_map(const LayoutView & view, double & x, double & y)
{
    const auto scale = static_cast<double>(view.view_scale);
    x = (x - static_cast<double>(view.view_left)) / scale + view.view_x_min;
    y = view.view_y_max - (y - static_cast<double>(view.view_top)) / scale;
}

void mesh_to_map(const PointTransform & transform, double & x, double & y)
{
    double no_z = missing_value;
    if (transform.in_use) apply_point_transform(transform, TransformDirection::inverse, x, y, no_z);
}

void map_to_mesh(const PointTransform & transform, double & x, double & y)
{
    double no_z = missing_value;
    if (transform.in_use) apply_point_transform(transform, TransformDirection::forward, x, y, no_z);
}

LayoutPlace place_at(const LayoutSource & source, double x, double y)
{
    const std::int32_t cell_x = cell_at(source.mesh.nodes_x, x), cell_y = cell_at(source.mesh.nodes_y, y);
    if (cell_x == 0 || cell_y == 0) return {};
    LayoutPlace place = { cell_x, cell_y, {}, format_number(cell_x, "0") + "," + format_number(cell_y, "0") };
    if (source.tiles == nullptr) return place;
    const Tile tile = { tile_with(source.tiles->tile_x_cells, cell_x), tile_with(source.tiles->tile_y_cells, cell_y) };
    if (!source.tiles->has(tile)) return place;
    place.tile = tile;
    place.text += tile_text(*source.tiles, tile);
    return place;
}
