#pragma once

#include "data/location_reader.h"
#include "support/missing.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The highest column that can be read.
inline constexpr std::int32_t highest_column = 512;

/// One record of a location file as it stands there: no sign or offset applied. Texts point into the line.
struct LocationRecord {
    /// x, y, z and three values.
    std::array<double, 6> number = { missing_value, missing_value, missing_value, missing_value, missing_value, missing_value };
    std::optional<std::string_view> line, category, text; ///< nothing where the record ended before the column
};

/// Takes the wanted columns out of lines, from left to right.
///
/// A line with a comma in it is split at commas, any other at blanks, tabs, semicolons and apostrophes. The first field that
/// should be a number and is not ends the record, so what stands to its right keeps its missing value.
/// A record whose fields stand apart already runs the same way.
class RecordParser {
public:
    /// Fails with a `SubscriptFault` for a column above 512.
    explicit RecordParser(const LocationSource & source);

    /// A byte that is no digit, such as a line end, must stand behind the line.
    void parse(std::string_view line, LocationRecord & record) const;
    /// fields: of the columns from 1 on; those behind the last are empty. Texts of the record point into them.
    void parse(std::span<const std::string> fields, LocationRecord & record) const;

private:
    /// One wanted field. Most columns fill one place of the record, which `place` names; the rest is for columns with many roles.
    struct Column {
        std::int32_t number = 0;
        std::int32_t place = -1;                    // 0 to 2 x, y, z; 3 to 5 values; -1 no number
        std::vector<std::int32_t> more_places = {}; // further ones with the same number
        bool line = false, category = false, text = false;

        bool is_text() const { return line || category || text; }
        void add_place(std::int32_t added)
        {
            if (place < 0)
                place = added;
            else
                more_places.push_back(added);
        }
    };

    template <class Fields>
    void parse_fields(Fields fields, LocationRecord & record) const;
    template <class Fields>
    static bool take_column(const Column & column, Fields & fields, LocationRecord & record);

    std::vector<Column> columns_; // ascending
};

/// All fields of a line as the parser takes them apart. They point into the line, behind which a byte that is no digit stands.
void split_record(std::string_view line, std::vector<std::string_view> & fields);
