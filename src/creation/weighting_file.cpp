#include "creation/weighting_file.h"

#include "mesh/weighting_list.h"
#include "support/file_writer.h"
#include "support/numbers.h"

namespace {

/// The cells of one column from the top down; `list` names the first, all others are 1.
std::string column_line(const List<double> & list, std::int32_t cells_z)
{
    std::string line;
    for (std::int32_t z = 1; z <= cells_z; ++z) line += " " + (z <= list.size() ? general_text(list[z]) : "1");
    return line;
}

void write_block(FileWriter & file, const List<double> & list, std::int32_t cells_x, std::int32_t cells_y, std::int32_t cells_z)
{
    const std::string line = column_line(list, cells_z);
    const std::int64_t columns = static_cast<std::int64_t>(cells_x) * cells_y;
    for (std::int64_t column = 0; column < columns; ++column) file.line(line);
}

}

Status write_weighting_file(const std::string & list, const std::string & path, std::int32_t cells_x, std::int32_t cells_y,
                            std::int32_t cells_z, Dialogs & dialogs)
{
    List<double> horizontal;
    if (parse_weighting_list(list, horizontal, dialogs) != Status::good) return Status::bad;
    FileWriter file(path);
    write_block(file, {}, cells_x, cells_y, cells_z);             // smallest model
    write_block(file, horizontal, cells_x - 1, cells_y, cells_z); // smoothness in x
    write_block(file, horizontal, cells_x, cells_y - 1, cells_z); // in y
    write_block(file, {}, cells_x, cells_y, cells_z - 1);         // in z
    file.close();
    return Status::good;
}
