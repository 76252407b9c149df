#include "model/model_export.h"

#include "model/window_columns.h"
#include "support/file_writer.h"
#include "support/missing.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

namespace {

static_assert(std::endian::native == std::endian::little, "the file is little-endian");

constexpr std::int64_t values_at_once = std::int64_t{ 1 } << 13;

bool is_whole(const NodeWindow & window, const UbcMesh & mesh)
{
    return window.x_first == 1 && window.x_last == mesh.cells_x() + 1 && window.y_first == 1 &&
           window.y_last == mesh.cells_y() + 1 && window.z_first == 1 && window.z_last == mesh.cells_z() + 1;
}

void write_values(FileWriter & file, std::span<const float> values, float scale)
{
    while (!values.empty()) {
        const auto some = values.first(std::min(values.size(), static_cast<std::size_t>(values_at_once)));
        char * at = file.room(some.size_bytes());
        for (const float value : some) {
            const float in_file = value <= missing_value_f32 ? value : value / scale;
            std::memcpy(at, &in_file, sizeof in_file);
            at += sizeof in_file;
        }
        file.commit(at);
        values = values.subspan(some.size());
    }
}

void write_all(FileWriter & file, const UbcMesh & mesh, const List<float> & values, float scale, Progress & progress)
{
    const auto cells = values.items();
    const auto layer = static_cast<std::size_t>(std::int64_t{ mesh.cells_x() } * mesh.cells_y());
    Percentage percentage(progress, mesh.cells_z());
    for (std::int32_t z = 1; z <= mesh.cells_z(); ++z) {
        write_values(file, cells.subspan(static_cast<std::size_t>(z - 1) * layer, layer), scale);
        percentage.report(z);
    }
}

void write_columns(FileWriter & file, const WindowColumns & columns, float scale, Progress & progress)
{
    const std::int64_t at_once = std::max(values_at_once / std::max(columns.height(), std::int64_t{ 1 }), std::int64_t{ 1 });
    std::vector<float> gathered;
    Percentage percentage(progress, columns.count());
    for (std::int64_t first = 0; first < columns.count(); first += at_once) {
        const std::int64_t last = std::min(first + at_once, columns.count());
        columns.gather(first, last, gathered);
        write_values(file, gathered, scale);
        percentage.report(last);
    }
}

}

void export_model(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                  std::int32_t model_type, const ModelText & form, Host & host)
{
    if (!host.dialogs.question("Export model in binary format?")) {
        write_model_file(path, mesh, window, values, form, host.progress);
        return;
    }
    const WindowColumns columns(mesh, window, values);
    FileWriter file(path);
    file.text("UBC");
    file.text(std::string(1, static_cast<char>(model_type)));
    if (is_whole(window, mesh))
        write_all(file, mesh, values, form.scale, host.progress);
    else
        write_columns(file, columns, form.scale, host.progress);
    file.close();
}
