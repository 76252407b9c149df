#pragma once

#include "data/location_reader.h"
#include "support/missing.h"

#include <optional>
#include <string_view>
#include <vector>

/// The highest column that can be read.
inline constexpr std::int32_t highest_column = 512;

/// One record of a location file as it stands there. Texts point into the line.
struct LocationRecord {
    double x = missing_value, y = missing_value, z = missing_value;
    std::array<float, 3> value = { missing_value_f32, missing_value_f32, missing_value_f32 };
    std::optional<std::string_view> line, category, text; ///< nothing where the record ended before the column
};

/// Takes the wanted columns out of lines, from left to right.
///
/// A line with a comma in it is split at commas, any other at blanks, tabs, semicolons and apostrophes. The first field that
/// should be a number and is not ends the record, so what stands to its right keeps its missing value.
class RecordParser {
public:
    /// Fails with a `SubscriptFault` for a column above 512.
    explicit RecordParser(const LocationSource & source);

    LocationRecord parse(std::string_view line) const;

private:
    struct Column {
        std::int32_t number = 0;
        bool x = false, y = false, z = false;
        std::array<bool, 3> value = {};
        bool line = false, category = false, text = false;

        bool is_number() const { return x || y || z || value[0] || value[1] || value[2]; }
        bool is_text() const { return line || category || text; }
    };

    template <class Fields>
    LocationRecord parse_fields(Fields fields) const;
    void set_number(const Column & column, double number, LocationRecord & record) const;

    std::vector<Column> columns_; // ascending
    bool z_is_depth_;
    double elevation_offset_;
};
