#pragma once

#include "data/database/database_points.h"
#include "fakes/recorded_host.h"

/// The names of the columns and the rows of a database, ";" between columns and " / " between rows; the faults instead, if any.
struct DatabaseTexts {
    std::string names, rows;

    DatabaseTexts(const std::string & path, const TextLines & text_lines)
    {
        RecordedHost recorded;
        const auto database = open_database(path, text_lines, recorded.host);
        if (database == nullptr) {
            rows = recorded.dialogs.messages.at(0);
            return;
        }
        const std::vector<DatabaseField> fields = get_field_list(*database, recorded.host);
        for (const std::string & name : column_names_of(fields)) names += (names.empty() ? "" : ";") + name;
        try {
            for (const DatabaseLine & line : database->lines()) add_rows(*database, fields, line, recorded.host);
        } catch (const Fault & fault) {
            rows = fault.what();
        }
    }

private:
    void add_rows(SurveyDatabase & database, const std::vector<DatabaseField> & fields, const DatabaseLine & line, Host & host)
    {
        const std::size_t count = database.row_count(line, 1);
        for (std::size_t row = 1; row <= count; ++row) {
            std::string text;
            for (const DatabaseField & field : fields)
                for (std::int32_t element = 0; element < field.array_size; ++element) {
                    ChannelValues values;
                    database.read_channel(line, database.find_channel(channel_name_of(field)), element, values);
                    text += ";" + get_gdb_val(&values, static_cast<std::int32_t>(row), host);
                }
            rows += (rows.empty() ? "" : " / ") + text.substr(1);
        }
    }
};
