#include "model/model_file.h"

#include "support/file_writer.h"
#include "support/pattern.h"

void write_model_file(const std::string & path, const UbcMesh & mesh, const NodeWindow & window, const List<float> & values,
                      const ModelText & form, Progress & progress)
{
    FileWriter file(path);
    if (form.skip) {
        file.close();
        return;
    }
    const auto cells = values.items();
    const std::int64_t column_step = mesh.cells_x();
    const std::int64_t layer_step = column_step * mesh.cells_y();
    const std::string null_text = " " + format_number(form.null_value, "0.00000E+00");
    const float scale = form.scale == 0 ? 1 : form.scale;
    Percentage percentage(progress, window.y_last - window.y_first);
    for (std::int32_t y = window.y_first; y < window.y_last; ++y) {
        for (std::int32_t x = window.x_first; x < window.x_last; ++x) {
            std::int64_t cell = (window.z_first - 1) * layer_step + (y - 1) * column_step + (x - 1);
            for (std::int32_t z = window.z_first; z < window.z_last; ++z, cell += layer_step) {
                const float value = cells[static_cast<std::size_t>(cell)];
                file.line(value <= -1e32F ? null_text : " " + format_number(value / scale, "0.00000E+00"));
            }
        }
        percentage.report(y + 1 - window.y_first);
    }
    file.close();
}
