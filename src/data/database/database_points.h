#pragma once

#include "data/database/survey_database.h"
#include "data/location_reader.h"

#include <string>
#include <vector>

/// One entry of the list of fields of a database.
struct DatabaseField {
    std::string name; ///< of an array channel with a final mark that is no part of the channel's name
    std::int32_t array_size = 1;
    std::int32_t channel_kind = 0; ///< above 1: an array channel
    std::int32_t last_column = 0;  ///< the last column number that the channel takes up
    std::int32_t value_count = 0;  ///< rows on the current line
};

/// The fields of an open database. A name without letters, or with bytes that cannot be printed, is left out and told to the
/// debug log. Empty after one message when the database cannot list them.
std::vector<DatabaseField> get_field_list(SurveyDatabase & database, Host & host);

/// The names of the columns from 1 on: one for each channel and each element of an array channel.
std::vector<std::string> column_names_of(const std::vector<DatabaseField> & fields);

/// One value as the text that a column file would hold: "*" for a missing number. row: from 1.
std::string get_gdb_val(const ChannelValues * values, std::int32_t row, Host & host);

/// Reads the points of a database as `read_locations_file` does those of a text; bad after one message, with nothing changed.
Status read_database_points(SurveyDatabase & database, const LocationSource & source, ReadMode mode, ObservedData & data,
                            LocationStatistics & statistics, Host & host);
