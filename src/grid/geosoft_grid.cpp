#include "grid/geosoft_grid.h"

#include "grid/geosoft_blocks.h"
#include "grid/grid_formats.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/missing.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr std::int32_t geosoft_code = 10, packed_mark = 1024;
constexpr std::size_t header_size = 512;

/// The header's fields that matter here, as they stand in the file.
struct GeosoftHeader {
    std::int32_t element_size, sign, elements, vectors, ordering;
    double element_step, vector_step, first_x, first_y, rotation, base, multiplier;

    bool is_packed() const { return element_size > packed_mark; }
    std::size_t bytes() const { return static_cast<std::size_t>(element_size % packed_mark); }
};

template <class T>
T value_at(std::string_view bytes, std::size_t offset)
{
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof(T)); // little-endian, as the machines this runs on
    return value;
}

GeosoftHeader read_header(std::string_view bytes)
{
    const auto count = [&](std::size_t offset) { return value_at<std::int32_t>(bytes, offset); };
    const auto real = [&](std::size_t offset) { return value_at<double>(bytes, offset); };
    return { count(0), count(4), count(8), count(12), count(16), real(20),
             real(28), real(36), real(44), real(52),  real(60),  real(68) };
}

/// One type of stored value: its number, its dummy, and how it becomes a double.
struct ElementType {
    std::size_t bytes;
    std::int32_t sign; ///< 0 unsigned, 1 signed, 2 real
    double dummy;
    double (*value)(const char * stored);
};

template <class T>
double stored_value(const char * stored)
{
    T value;
    std::memcpy(&value, stored, sizeof(T));
    return static_cast<double>(value);
}

constexpr ElementType element_types[] = {
    { 1, 0, 255, stored_value<std::uint8_t> },           { 1, 1, -127, stored_value<std::int8_t> },
    { 2, 0, 65535, stored_value<std::uint16_t> },        { 2, 1, -32767, stored_value<std::int16_t> },
    { 4, 0, 4294967295.0, stored_value<std::uint32_t> }, { 4, 1, -2147483647.0, stored_value<std::int32_t> },
    { 4, 2, missing_value, stored_value<float> },        { 8, 2, missing_value, stored_value<double> },
};

const ElementType & type_of(const GeosoftHeader & header)
{
    const std::int32_t sign = header.bytes() == 8 ? 2 : header.sign; // 8 bytes are a double whatever is said
    for (const ElementType & type : element_types)
        if (type.bytes == header.bytes() && type.sign == sign) return type;
    throw Fault("its values are of a type that cannot be read (colours?)");
}

void check_header(const GeosoftHeader & header)
{
    if (header.elements <= 0 || header.vectors <= 0) throw Fault("it has no cells");
    if (header.ordering != 1 && header.ordering != -1) throw Fault("its rows are stored in an order that cannot be read");
    if (!(header.element_step > 0) || !(header.vector_step > 0)) throw Fault("its cell size is not above 0");
    if (header.rotation != 0) throw Fault("it is rotated, and only grids along the axes can be read");
    if (header.multiplier == 0 || !std::isfinite(header.multiplier) || !std::isfinite(header.base))
        throw Fault("its scale cannot be used");
}

class GeosoftGrid : public GridSource {
public:
    explicit GeosoftGrid(const std::string & path)
        : path_(path), file_(path), raw_(read_header(file_.text())), type_(type_of(raw_))
    {
        check_header(raw_);
        const GeosoftBody body{ raw_.elements, raw_.vectors, raw_.bytes() };
        if (raw_.is_packed()) {
            blocks_.emplace(file_.text(), body);
        } else if (file_.text().size() < header_size + body.vector_bytes() * static_cast<std::size_t>(raw_.vectors)) {
            throw Fault("it is cut short: it holds fewer values than its header says");
        }
        by_columns_ = raw_.ordering == -1;
        fits_f32_ = raw_.bytes() <= 4 && (raw_.bytes() < 4 || type_.sign == 2) && raw_.multiplier == 1 && raw_.base == 0;
        describe();
    }

    void read(const GridWindow & window, std::span<double> values) override
    {
        const std::int32_t south = header_.rows - window.row - window.rows; // elements and vectors count from the south west
        const std::int32_t first_vector = by_columns_ ? window.column : south;
        const std::int32_t first_element = by_columns_ ? south : window.column;
        const std::int32_t vectors = by_columns_ ? window.columns : window.rows;
        const std::int32_t elements = by_columns_ ? window.rows : window.columns;
        const auto width = static_cast<std::ptrdiff_t>(window.columns);
        const std::ptrdiff_t element_stride = by_columns_ ? -width : 1, vector_stride = by_columns_ ? 1 : -width;
        std::ptrdiff_t start = width * (window.rows - 1); // the south west corner of what is filled
        for (std::int32_t v = 0; v < vectors; ++v, start += vector_stride) {
            const char * stored = vector_at(first_vector + v) + static_cast<std::size_t>(first_element) * type_.bytes;
            std::ptrdiff_t at = start;
            for (std::int32_t e = 0; e < elements; ++e, stored += type_.bytes, at += element_stride)
                values[static_cast<std::size_t>(at)] = value_of(stored);
        }
        file_.verify();
    }

private:
    void describe()
    {
        header_.format = grid_format_with_code(geosoft_code);
        header_.registration = header_.format->registration;
        header_.columns = by_columns_ ? raw_.vectors : raw_.elements;
        header_.rows = by_columns_ ? raw_.elements : raw_.vectors;
        header_.cell_size_x = by_columns_ ? raw_.vector_step : raw_.element_step;
        header_.cell_size_y = by_columns_ ? raw_.element_step : raw_.vector_step;
        header_.limits.west = raw_.first_x - header_.cell_size_x / 2;
        header_.limits.south = raw_.first_y - header_.cell_size_y / 2;
        header_.limits.east = raw_.first_x + (header_.columns - 0.5) * header_.cell_size_x;
        header_.limits.north = raw_.first_y + (header_.rows - 0.5) * header_.cell_size_y;
        header_.null_value = type_.dummy;
        header_.band_names = { "Band 1" };
    }

    const char * vector_at(std::int32_t vector)
    {
        if (blocks_) {
            try {
                return blocks_->vector_at(vector);
            } catch (const Fault & fault) {
                throw FileFault("cannot read", path_, fault.what());
            }
        }
        const std::size_t vector_bytes = static_cast<std::size_t>(raw_.elements) * type_.bytes;
        return file_.text().data() + header_size + static_cast<std::size_t>(vector) * vector_bytes;
    }

    double value_of(const char * stored) const
    {
        const double value = type_.value(stored);
        if (is_missing(value) || value == type_.dummy || !std::isfinite(value)) return missing_value;
        return value / raw_.multiplier + raw_.base;
    }

    std::string path_;
    FileBytes file_;
    GeosoftHeader raw_;
    const ElementType & type_;
    std::optional<GeosoftBlocks> blocks_;
};

}

bool is_geosoft_grid(const std::string & path)
{
    try {
        const FileBytes file(path);
        if (file.text().size() < header_size) return false;
        const GeosoftHeader header = read_header(file.text());
        const std::int32_t size = header.element_size > packed_mark ? header.element_size - packed_mark : header.element_size;
        return (size == 1 || size == 2 || size == 4 || size == 8) && header.sign >= 0 && header.sign <= 3 &&
               std::abs(header.ordering) <= 8;
    } catch (const FileFault &) {
        return false; // whoever goes on to read it says why it cannot be read
    }
}

std::unique_ptr<GridSource> open_geosoft_grid(const std::string & path) { return std::make_unique<GeosoftGrid>(path); }
