#include "data/database/database_points.h"

#include "data/point_gatherer.h"
#include "support/fault.h"
#include "support/missing.h"
#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <cmath>
#include <exception>

namespace {

constexpr const char * no_value = "*";
constexpr char array_mark = '[';
constexpr std::int32_t plain_channel = 1, array_channel = 2;
constexpr std::size_t few_columns = 24; // as many names as a message can hold

bool is_printable(unsigned char c) { return c >= ' ' && c != 127; }

bool is_good_name(const std::string & name, Host & host)
{
    const bool empty = trim(name).empty();
    if (!empty && is_utf8(name) && std::ranges::all_of(name, is_printable)) return true;
    debug_write(host.debug, host.dialogs, false, empty ? "Zero length name!" : "Non-printing character " + name);
    return false;
}

std::vector<DatabaseField> fields_of(const std::vector<DatabaseChannel> & channels, Host & host)
{
    std::vector<DatabaseField> fields;
    std::int32_t last_column = 0;
    for (const DatabaseChannel & channel : channels) {
        if (!is_good_name(channel.name, host)) continue;
        const bool is_array = channel.array_size > 1;
        last_column = add_counts(last_column, is_array ? channel.array_size : 1);
        fields.push_back({ is_array ? channel.name + array_mark : channel.name, channel.array_size,
                           is_array ? array_channel : plain_channel, last_column, 0, channel.is_line_name });
    }
    if (fields.empty()) throw Fault("it has no channel with a name that can be shown");
    return fields;
}

std::int32_t first_column_of(const DatabaseField & field) { return field.last_column - std::max(field.array_size, 1) + 1; }

/// A column that the definition names, and what for.
struct ColumnUse {
    std::int32_t column;
    const char * use;
    bool is_text = false;
};

std::vector<ColumnUse> uses_of(const LocationSource & source)
{
    std::vector<ColumnUse> uses = {
        { source.x_column, "x" },
        { source.y_column, "y" },
        { source.z_column, "z" },
        { source.value_column[0], "the value" },
        { source.value_column[1], "the second value" },
        { source.value_column[2], "the third value" },
        { source.line_column, "the line name", true },
        { source.category_column, "the category", true },
        { source.text_column, "the text", true },
    };
    std::erase_if(uses, [](const ColumnUse & use) { return use.column <= 0; });
    return uses;
}

std::string missing_column_text(const LocationSource & source, const ColumnUse & use, const std::vector<DatabaseField> & fields)
{
    const std::vector<std::string> names = column_names_of(fields);
    std::string text = "Column " + general_text(use.column) + ", for " + use.use + ", is not in the database " +
                       source.file_name + ", which has " + general_text(fields.back().last_column) + " columns";
    for (std::size_t i = 0; i < names.size() && names.size() <= few_columns; ++i)
        text += (i == 0 ? ": " : ", ") + general_text(static_cast<std::int32_t>(i + 1)) + " " + names[i];
    return text;
}

std::string column_fault(const LocationSource & source, const ColumnUse & use, const std::vector<DatabaseField> & fields)
{
    if (use.column > fields.back().last_column) return missing_column_text(source, use, fields);
    return use.is_text ? "" : line_name_fault(fields, use.column, use.use, source.file_name);
}

/// Channels held for reading, until the object goes.
class HeldChannels {
public:
    explicit HeldChannels(SurveyDatabase & database) : database_(database) {}
    HeldChannels(const HeldChannels &) = delete;
    HeldChannels & operator=(const HeldChannels &) = delete;
    ~HeldChannels()
    {
        for (const std::int32_t symbol : symbols_) {
            try {
                database_.unlock(symbol);
            } catch (...) { // the others must be let go of all the same
            }
        }
    }

    void hold(std::int32_t symbol)
    {
        if (std::ranges::find(symbols_, symbol) != symbols_.end()) return; // two fields of one name
        symbols_.reserve(symbols_.size() + 1);                             // nothing may fail between the lock and its note
        database_.lock(symbol);
        symbols_.push_back(symbol);
    }

private:
    SurveyDatabase & database_;
    std::vector<std::int32_t> symbols_;
};

/// The rows of a database as records of fields, one line after the other.
class DatabaseRows {
public:
    DatabaseRows(SurveyDatabase & database, const std::vector<DatabaseField> & fields, const std::vector<ColumnUse> & uses,
                 Host & host)
        : database_(database), held_(database), column_count_(static_cast<std::size_t>(fields.back().last_column)), host_(host)
    {
        for (const DatabaseField & field : fields) add_channel(field, uses);
    }

    void load(const DatabaseLine & line)
    {
        row_ = 0;
        row_count_ = 0;
        for (Channel & channel : channels_) {
            load(channel, line);
            row_count_ = std::max(row_count_, channel.field.value_count);
        }
        if (row_count_ > highest_row) throw OverflowFault("Line " + line.name + " has too many rows");
    }

    bool next(std::vector<std::string> & fields)
    {
        if (row_ == row_count_) return false;
        ++row_;
        fields.resize(column_count_, no_value);
        for (const Channel & channel : channels_)
            for (const Column & column : channel.columns) fields[column.index] = field_of(column.values);
        return true;
    }

private:
    static constexpr std::size_t highest_row = 0x7fffffff;

    struct Column {
        std::size_t index; // from 0, among all columns
        std::int32_t element;
        ChannelValues values;
    };
    struct Channel {
        DatabaseField field;
        std::int32_t symbol;
        std::vector<Column> columns; // the wanted ones only
    };

    // All channels are held, as one that is not wanted may be the longest.
    void add_channel(const DatabaseField & field, const std::vector<ColumnUse> & uses)
    {
        const std::int32_t symbol = database_.find_channel(channel_name_of(field));
        if (symbol == 0) return;
        held_.hold(symbol);
        channels_.push_back({ field, symbol, {} });
        const std::int32_t type = database_.channel_type(symbol);
        for (std::int32_t column = first_column_of(field); column <= field.last_column; ++column) {
            if (std::ranges::none_of(uses, [column](const ColumnUse & use) { return use.column == column; })) continue;
            channels_.back().columns.push_back(
                { static_cast<std::size_t>(column) - 1, column - first_column_of(field), { type, {}, {}, {} } });
        }
    }

    void load(Channel & channel, const DatabaseLine & line)
    {
        std::size_t & rows = channel.field.value_count;
        rows = channel.columns.empty() ? database_.row_count(line, channel.symbol) : 0;
        for (Column & column : channel.columns) {
            database_.read_channel(line, channel.symbol, column.element, column.values);
            rows = std::max(rows, column.values.count());
        }
    }

    std::string field_of(const ChannelValues & values) const
    {
        return row_ > values.count() ? no_value : get_gdb_val(&values, static_cast<std::int32_t>(row_), host_);
    }

    SurveyDatabase & database_;
    HeldChannels held_;
    std::vector<Channel> channels_;
    std::size_t column_count_;
    std::size_t row_ = 0, row_count_ = 0; // of the current line
    Host & host_;
};

void check_column_count(const LocationSource & source, std::int32_t count)
{
    if (count > highest_column)
        throw SubscriptFault(source.file_name + " has " + general_text(count) + " columns, more than the " +
                             general_text(highest_column) +
                             " that can be read; export the lines to a point file, and choose that");
}

}

std::vector<DatabaseField> get_field_list(SurveyDatabase & database, Host & host)
{
    try {
        return fields_of(database.channels(), host);
    } catch (const std::exception & fault) {
        host.dialogs.message(std::string("Error Opening Database in get_field_list: ") + fault.what());
        return {};
    }
}

std::string channel_name_of(const DatabaseField & field)
{
    return field.channel_kind <= plain_channel ? field.name : field.name.substr(0, field.name.size() - 1);
}

std::vector<std::string> column_names_of(const std::vector<DatabaseField> & fields)
{
    std::vector<std::string> names;
    for (const DatabaseField & field : fields) {
        if (field.channel_kind <= plain_channel) names.push_back(field.name);
        for (std::int32_t i = 1; field.channel_kind > plain_channel && i <= field.array_size; ++i)
            names.push_back(field.name + general_text(i) + "]");
    }
    return names;
}

std::string line_name_fault(const std::vector<DatabaseField> & fields, std::int32_t column, const std::string & use,
                            const std::string & file_name)
{
    const auto field = std::ranges::find(fields, column, &DatabaseField::last_column);
    if (field == fields.end() || !field->is_line_name) return "";
    return "Column " + general_text(column) + ", for " + use + ", is the name of the line in the database " + file_name +
           ", whose readings have " + general_text(column - 1) +
           " fields. If longer readings come later in the file, copy it to one with the extension .dat, and choose that";
}

std::string get_gdb_val(const ChannelValues * values, std::int32_t row, Host & host)
{
    if (values == nullptr) {
        debug_write(host.debug, host.dialogs, false, "Bad hGDBVV in get_gdb_val");
        return {};
    }
    const auto index = static_cast<std::size_t>(row) - 1;
    if (values->type < 0) return text_before_nul(values->texts[index]);
    if (values->type <= 3) return general_text(values->integers[index]);
    const double value = values->reals[index];
    return is_missing(value) || !std::isfinite(value) ? no_value : general_text(value);
}

Status read_database_points(SurveyDatabase & database, const LocationSource & source, ReadMode mode, ObservedData & data,
                            LocationStatistics & statistics, Host & host)
{
    const PointRules rules(source, mode, statistics);
    const std::vector<DatabaseField> fields = get_field_list(database, host);
    if (fields.empty()) return Status::bad;
    check_column_count(source, fields.back().last_column);
    const std::vector<ColumnUse> uses = uses_of(source);
    for (const ColumnUse & use : uses) {
        const std::string fault = column_fault(source, use, fields);
        if (fault.empty()) continue;
        host.dialogs.message(fault);
        return Status::bad;
    }

    DatabaseRows rows(database, fields, uses, host);
    const std::vector<DatabaseLine> lines = database.lines();
    PointGatherer points(source, mode, 0);
    PointBlock block;
    Percentage percentage(host.progress, std::ssize(lines));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        rows.load(lines[i]);
        read_block(
            rules, [&rows](std::vector<std::string> & record) { return rows.next(record); }, points.texts(), block);
        points.take(block);
        percentage.report(static_cast<std::int64_t>(i) + 1);
    }
    points.finish(data, statistics);
    return Status::good;
}
