#include "rules/database_columns.h"

#include "data/database/database_points.h"
#include "data/observed_processing.h"
#include "rules/data_columns.h"
#include "rules/silent_host.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"

#include <algorithm>

namespace {

constexpr std::int32_t database_file = 2, most_rows = 30;

std::unique_ptr<SurveyDatabase> open_slot(const InversionDefinition & definition, int slot, Host & host)
{
    const auto at = static_cast<std::size_t>(slot);
    return open_database(definition.data_file[at], { definition.data_first_line[at], definition.data_read_step[at] }, host);
}

/// Empty after one message.
std::vector<DatabaseField> fields_of(const InversionDefinition & definition, int slot, Host & host)
{
    const auto database = open_slot(definition, slot, host);
    return database != nullptr ? get_field_list(*database, host) : std::vector<DatabaseField>();
}

/// The texts of a column along a line.
std::vector<std::string> column_texts(SurveyDatabase & database, const DatabaseLine & line, std::int32_t symbol,
                                      std::int32_t element, Host & host)
{
    ChannelValues values;
    database.lock(symbol);
    values.type = database.channel_type(symbol);
    database.read_channel(line, symbol, element, values);
    database.unlock(symbol);
    std::vector<std::string> texts;
    for (std::int32_t row = 1; row <= std::min(round_to_count(static_cast<double>(values.count())), most_rows); ++row)
        texts.push_back(get_gdb_val(&values, row, host));
    return texts;
}

/// The first rows of a line, as far as there is room for them.
void add_rows(SurveyDatabase & database, const std::vector<DatabaseField> & fields, const DatabaseLine & line,
              DataPreview & preview, Host & host)
{
    const std::size_t before = preview.rows.size();
    std::size_t column = 0;
    for (const DatabaseField & field : fields) {
        const std::int32_t symbol = database.find_channel(channel_name_of(field));
        for (std::int32_t element = 0; element < std::max(field.array_size, 1); ++element, ++column) {
            if (symbol == 0) continue;
            const std::vector<std::string> texts = column_texts(database, line, symbol, element, host);
            for (std::size_t row = 0; row < texts.size() && before + row < most_rows; ++row) {
                if (preview.rows.size() == before + row)
                    preview.rows.emplace_back(static_cast<std::size_t>(fields.back().last_column), "*");
                preview.rows[before + row][column] = texts[row];
            }
        }
    }
}

}

std::optional<std::vector<std::string>> database_column_names(const InversionDefinition & definition, int slot, Host & host)
{
    const std::vector<DatabaseField> fields = fields_of(definition, slot, host);
    if (fields.empty()) return std::nullopt;
    return column_names_of(fields);
}

Status check_database_columns(const Setup & setup, int slot, Host & host)
{
    const InversionDefinition & definition = setup.definition;
    const auto at = static_cast<std::size_t>(slot);
    if (definition.data_kind.at(at) != database_file) return Status::good;
    const std::vector<DatabaseField> fields = fields_of(definition, slot, host);
    if (fields.empty()) return Status::bad;
    const std::string name = file_name_of_path(definition.data_file[at]);
    const std::int32_t count = fields.back().last_column;
    for (const ColumnUse & row : column_uses(setup, slot)) {
        std::string fault;
        if (row.column > count)
            fault = "Column " + general_text(row.column) + ", for " + row.use + ", is not in the database " + name +
                    ", which has " + general_text(count) + " columns";
        else if (row.is_number)
            fault = line_name_fault(fields, row.column, row.use, name);
        if (fault.empty()) continue;
        host.dialogs.message(fault);
        return Status::bad;
    }
    return Status::good;
}

void preview_database(const InversionDefinition & definition, int slot, DataPreview & preview)
{
    SilentHost silent;
    const auto database = open_slot(definition, slot, silent.host);
    const std::vector<DatabaseField> fields =
        database != nullptr ? get_field_list(*database, silent.host) : std::vector<DatabaseField>();
    if (fields.empty()) {
        preview.summary = silent.dialogs.text;
        return;
    }
    preview.names = column_names_of(fields);
    for (const DatabaseLine & line : database->first_lines(most_rows)) {
        if (preview.rows.size() >= most_rows) break;
        add_rows(*database, fields, line, preview, silent.host);
    }
    if (preview.rows.empty()) preview.summary = "The database holds no reading";
}
