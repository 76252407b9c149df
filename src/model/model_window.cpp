#include "model/model_window.h"

#include "support/fault.h"
#include "support/file_writer.h"
#include "support/ordered_work.h"
#include "support/paths.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <string_view>

namespace {

/// The text of some rows of a window, and the memory and the file from which it comes.
struct Rows {
    std::ifstream whole;
    std::vector<char> room;
    std::size_t size = 0;

    std::string_view text() const { return { room.data(), size }; }
};

class WindowRows {
public:
    WindowRows(const std::string & whole, const ColumnPlaces & places, std::int32_t columns, const NodeWindow & window)
        : whole_(whole), places_(places), columns_(static_cast<std::size_t>(columns)), window_(window)
    {
        const std::int64_t end = (window.y_last - std::int64_t{ 2 }) * columns + window.x_last - 1;
        if (window.z_first != 1 || window.z_last != places.top_cells + 1 || window.x_last - 1 > columns ||
            end > std::ssize(places.top_sizes))
            throw SubscriptFault("the window is not one of the model in " + whole);
    }

    void gather(std::size_t first_row, std::size_t last_row, Rows & rows) const
    {
        rows.size = 0;
        if (!rows.whole.is_open()) rows.whole.open(host_path(whole_), std::ios::binary);
        for (std::size_t row = first_row; row < last_row; ++row) append(row, rows);
    }

private:
    /// Reads the whole columns of a row and moves what is above the window's bottom together.
    void append(std::size_t row, Rows & rows) const
    {
        const std::size_t first =
            (static_cast<std::size_t>(window_.y_first - 1) + row) * columns_ + static_cast<std::size_t>(window_.x_first - 1);
        const std::size_t last = first + static_cast<std::size_t>(window_.x_last - window_.x_first);
        const std::uint64_t start = places_.ends[first];
        read(start, places_.ends[last] - start, rows);
        const char * const from = rows.room.data() + rows.size;
        char * to = rows.room.data() + rows.size;
        for (std::size_t column = first; column < last; ++column) {
            std::memmove(to, from + (places_.ends[column] - start), places_.top_sizes[column]);
            to += places_.top_sizes[column];
        }
        rows.size = static_cast<std::size_t>(to - rows.room.data());
    }

    void read(std::uint64_t start, std::uint64_t count, Rows & rows) const
    {
        if (rows.room.size() < rows.size + count) rows.room.resize(rows.size + count);
        rows.whole.seekg(static_cast<std::streamoff>(start));
        rows.whole.read(rows.room.data() + rows.size, static_cast<std::streamsize>(count));
        if (!rows.whole) throw FileFault("cannot read", whole_, "it is no longer as it was written");
    }

    const std::string & whole_;
    const ColumnPlaces & places_;
    std::size_t columns_;
    NodeWindow window_;
};

}

void copy_model_window(const std::string & whole, const ColumnPlaces & places, std::int32_t columns, const std::string & path,
                       const NodeWindow & window, Progress & progress)
{
    constexpr std::int64_t values_at_once = std::int64_t{ 1 } << 14;
    FileWriter file(path);
    const auto height = static_cast<std::size_t>(std::max(window.y_last - window.y_first, 0));
    const std::int64_t values_in_row = std::int64_t{ window.x_last - window.x_first } * places.top_cells;
    if (height == 0 || values_in_row <= 0) return file.close();
    const WindowRows window_rows(whole, places, columns, window);
    const auto at_once = static_cast<std::size_t>(std::max(values_at_once / values_in_row, std::int64_t{ 1 }));
    const auto end_of = [&](std::size_t block) { return std::min((block + 1) * at_once, height); };
    Percentage percentage(progress, window.y_last - window.y_first);
    work_in_order<Rows>((height + at_once - 1) / at_once, working_threads(),
                        [&](std::size_t block, Rows & rows) { window_rows.gather(block * at_once, end_of(block), rows); },
                        [&](std::size_t block, const Rows & rows) {
                            file.text(rows.text());
                            for (std::size_t row = block * at_once; row < end_of(block); ++row)
                                percentage.report(static_cast<std::int64_t>(row) + 1);
                        });
    file.close();
}
