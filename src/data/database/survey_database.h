#pragma once

#include "host/host.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A channel as a database lists it.
struct DatabaseChannel {
    std::string name;
    std::int32_t array_size = 1; ///< elements of an array channel, 1 for a plain one
    bool is_line_name = false;   ///< no field of a reading: a number cannot be meant by it
};

/// A survey line as a database lists it.
struct DatabaseLine {
    std::string name;
    std::int32_t handle = 0;
};

/// The values of one channel, or of one element of an array channel, along one line. One of the three lists is filled, by `type`.
/// A missing real is at or below -1e30. A missing integer has no mark, so integers with gaps are given as reals.
struct ChannelValues {
    std::int32_t type = 0; ///< 0 to 3 integers, above 3 reals, below 0 texts of at most that many bytes
    std::vector<std::int32_t> integers;
    std::vector<double> reals;
    std::vector<std::string> texts;

    std::size_t count() const { return type < 0 ? texts.size() : type > 3 ? reals.size() : integers.size(); }
};

/// One open database: what the reader asks of any source that holds its readings by lines and channels. It is closed when it is
/// destroyed. Symbols and handles are numbers that the database gives out; 0 is none. Operations fail with a `Fault` in words
/// that a person can act on.
class SurveyDatabase {
public:
    virtual ~SurveyDatabase() = default;

    /// In the order of the columns.
    virtual std::vector<DatabaseChannel> channels() = 0;
    /// The symbol of a channel, 0 when there is none of that name.
    virtual std::int32_t find_channel(const std::string & name) = 0;
    /// Holds a channel for reading, and lets go of it.
    virtual void lock(std::int32_t symbol) = 0;
    virtual void unlock(std::int32_t symbol) = 0;
    virtual std::int32_t channel_type(std::int32_t symbol) = 0;
    /// In the order of the file. A text database gives a long line in pieces, each as a line, and checks all that it holds.
    virtual std::vector<DatabaseLine> lines() = 0;
    /// Lines of the beginning that have at least so many rows together, if there are that many; quick however large the file is.
    virtual std::vector<DatabaseLine> first_lines(std::int32_t rows)
    {
        static_cast<void>(rows);
        return lines();
    }
    /// Replaces `values` by those of a channel on a line. element: from 0, of an array channel. A channel may be shorter than
    /// others on its line, or not be there at all.
    virtual void read_channel(const DatabaseLine & line, std::int32_t symbol, std::int32_t element, ChannelValues & values) = 0;
    /// How many rows a channel has on a line, for a source that knows without giving the values out.
    virtual std::size_t row_count(const DatabaseLine & line, std::int32_t symbol)
    {
        ChannelValues values;
        read_channel(line, symbol, 0, values);
        return values.count();
    }
};

/// The kinds of database that can be told apart.
enum class DatabaseKind {
    none,      ///< a column file, or no file
    geosoft,   ///< *.gdb
    aseg_gdf2, ///< *.dfn, the definition beside its *.dat
    line_xyz   ///< *.xyz whose first record is the name of a line
};

/// What a file is, by its name and, for *.xyz, by its first lines; one that cannot be read is taken for a column file.
DatabaseKind database_kind(const std::string & path);

/// How lines of a text database are taken. Other databases have no lines of text.
struct TextLines {
    std::int32_t first = 1;     ///< number of the first line that may hold data
    std::int32_t increment = 1; ///< take every n-th data line
};

/// Opens a database of any kind. Null after one message.
std::unique_ptr<SurveyDatabase> open_database(const std::string & path, const TextLines & text_lines, Host & host);
