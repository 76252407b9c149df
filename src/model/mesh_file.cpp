#include "model/mesh_file.h"

#include "support/bulk_format.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "support/text.h"

#include <cmath>

namespace {

/// Equal widths of one axis gathered into tokens: "100.0000" or "12*100.0000".
class WidthLines {
public:
    explicit WidthLines(FileWriter & file) : file_(file) {}

    void add(double width)
    {
        if (count_ > 0 && std::abs(width - width_) < same_width) {
            ++count_;
            return;
        }
        if (count_ > 0) add_token();
        width_ = width;
        count_ = 1;
    }

    /// The last token is added as it is; an axis without cells gives a run of none.
    void finish()
    {
        line_ += token();
        file_.line(line_);
    }

private:
    static constexpr double same_width = 0.001; // metres
    static constexpr int token_width = 11;      // a longer token is cut and loses digits; readers rely on the columns
    static constexpr std::size_t full_line = 132;

    std::string token() const
    {
        const std::string width = format_number(width_, "0.0000");
        return count_ == 1 ? width : format_number(count_, "0") + "*" + width;
    }

    void add_token()
    {
        line_ += pad_left(token(), token_width) + " ";
        if (line_.size() < full_line) return;
        file_.line(line_);
        line_.clear();
    }

    FileWriter & file_;
    std::string line_;
    double width_ = -1;
    std::int32_t count_ = 0;
};

void write_widths(FileWriter & file, const List<double> & widths, std::int32_t first, std::int32_t last)
{
    WidthLines lines(file);
    for (std::int32_t i = first; i < last; ++i) lines.add(widths[i]);
    lines.finish();
}

void write_extension(FileWriter & file, const UbcMesh & mesh, const NodeWindow & window, const MeshExtension & extension)
{
    const bool topo_only = extension.format == 4 && extension.topo_nodes == nullptr;
    file.line("Mesh format: " + format_number(topo_only ? 2 : extension.format, "0"));
    if (extension.format == 5 && extension.drape_top > extension.drape_bottom)
        file.line("Mesh topo drape: " + format_number(extension.drape_top, "0.0") + " " +
                  format_number(extension.drape_bottom, "0.0"));
    if (extension.air_cells > 0) file.line("Number of air cells: " + format_number(extension.air_cells, "0.0"));
    if (extension.sea_cells > 0) file.line("Number of sea cells: " + format_number(extension.sea_cells, "0.0"));
    if (extension.format >= 2 && extension.format <= 5 && extension.topo_nodes != nullptr)
        write_topography(file, mesh, window, *extension.topo_nodes);
    if (extension.trapezoid_nodes != nullptr) write_trapezoids(file, mesh, window, *extension.trapezoid_nodes);
}

}

void write_topography(FileWriter & file, const UbcMesh & mesh, const NodeWindow & window, const List<float> & topo)
{
    constexpr std::size_t full_line = 70;
    file.line("Topography (from lower-left by row)");
    std::string line;
    char elevation[longest_fixed];
    for (std::int32_t y = window.y_first; y <= window.y_last; ++y) {
        for (std::int32_t x = window.x_first; x <= window.x_last; ++x) {
            const float node = topo[(y - std::int64_t{ 1 }) * mesh.nodes_x.size() + x];
            line.append(elevation, put_fixed(elevation, static_cast<double>(node), 2)).append("  ");
            if (line.size() <= full_line && x < window.x_last) continue;
            file.line(line);
            line.clear();
        }
    }
}

void write_trapezoids(FileWriter & file, const UbcMesh & mesh, const NodeWindow & window, const List<double> & pairs)
{
    file.line("Trapezoidal nodes");
    for (std::int32_t y = window.y_first; y <= window.y_last; ++y)
        for (std::int32_t x = window.x_first; x <= window.x_last; ++x) {
            const std::int64_t node = (y - std::int64_t{ 1 }) * mesh.nodes_x.size() + x;
            file.line(format_number(pairs[2 * node - 1], "0.00") + "  " + format_number(pairs[2 * node], "0.00"));
        }
}

NodeWindow whole_mesh(const UbcMesh & mesh) { return { 1, mesh.nodes_x.size(), 1, mesh.nodes_y.size(), 1, mesh.nodes_z.size() }; }

void write_mesh_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, bool skip_xy,
                     const std::optional<MeshExtension> & extension)
{
    FileWriter file(path);
    if (!skip_xy) {
        file.line(format_number(window.x_last - window.x_first, "0") + " " + format_number(window.y_last - window.y_first, "0") +
                  " " + format_number(window.z_last - window.z_first, "0"));
        file.line(str_text(mesh.nodes_x[window.x_first]) + " " + str_text(mesh.nodes_y[window.y_first]) + " " +
                  str_text(mesh.nodes_z[window.z_first]));
    }
    write_widths(file, mesh.widths_x, window.x_first, skip_xy ? window.x_first : window.x_last);
    write_widths(file, mesh.widths_y, window.y_first, skip_xy ? window.y_first : window.y_last);
    write_widths(file, mesh.widths_z, window.z_first, window.z_last);
    if (extension) write_extension(file, mesh, window, *extension);
    file.close();
}
