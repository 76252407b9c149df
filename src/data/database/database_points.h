#pragma once

#include "data/database/survey_database.h"
#include "data/location_reader.h"

#include <string>
#include <vector>

/// One entry of the list of fields of a database.
struct DatabaseField {
    std::string name; ///< of an array channel with a final "[", which is no part of the channel's name
    std::int32_t array_size = 1;
    std::int32_t channel_kind = 0; ///< above 1: an array channel
    std::int32_t last_column = 0;  ///< the last column number that the channel takes up
    std::size_t value_count = 0;   ///< rows on the current line
    bool is_line_name = false;
};

/// The fields of an open database. A name without letters, or with bytes that cannot be printed, is left out and told to the
/// debug log. Empty after one message, "Error Opening Database in get_field_list: " and the reason, when there is nothing to
/// list.
std::vector<DatabaseField> get_field_list(SurveyDatabase & database, Host & host);

/// The name by which the channel of a field is found.
std::string channel_name_of(const DatabaseField & field);

/// The names of the columns from 1 on: one for each channel and each element of an array channel ("Z[1]", "Z[2]").
std::vector<std::string> column_names_of(const std::vector<DatabaseField> & fields);

/// Why a column cannot hold numbers, for a column that is the name of the line; otherwise empty. use: what the numbers are for.
std::string line_name_fault(const std::vector<DatabaseField> & fields, std::int32_t column, const std::string & use,
                            const std::string & file_name);

/// One value as the text that a column file would hold: "*" for a missing number. row: from 1, within the values. Without values
/// an empty text, which is told to the debug log.
std::string get_gdb_val(const ChannelValues * values, std::int32_t row, Host & host);

/// Reads the points of a database as `read_locations_file` does those of a text: each row of each line is a record, line by line,
/// up to the longest channel. A column without a channel, and a channel beyond its end, is "*".
///
/// Bad, after one message, for a column that the database does not have, and for numbers from the names of lines. Fails with a
/// `Fault` when it cannot be read, and with `SubscriptFault` when it has more than 512 columns. In no case is anything changed
/// then, or a channel still held.
Status read_database_points(SurveyDatabase & database, const LocationSource & source, ReadMode mode, ObservedData & data,
                            LocationStatistics & statistics, Host & host);
