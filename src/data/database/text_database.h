#pragma once

#include "data/database/survey_database.h"

#include <limits>
#include <string>
#include <vector>

/// A database that is a text file. All channels are texts, so that their values keep every digit, and rows are taken from the
/// file in pieces of one line each, so that memory stays small however long a line is.
class TextDatabase : public SurveyDatabase {
public:
    std::vector<DatabaseChannel> channels() override { return channels_; }
    std::int32_t find_channel(const std::string & name) override;
    void lock(std::int32_t) override {}
    void unlock(std::int32_t) override {}
    std::int32_t channel_type(std::int32_t) override { return text_type; }
    std::vector<DatabaseLine> lines() override { return listed(std::numeric_limits<std::int64_t>::max()); }
    std::vector<DatabaseLine> first_lines(std::int32_t rows) override { return listed(rows); }
    void read_channel(const DatabaseLine & line, std::int32_t symbol, std::int32_t element, ChannelValues & values) override;
    std::size_t row_count(const DatabaseLine & line, std::int32_t symbol) override;

protected:
    static constexpr std::int32_t text_type = -10240;
    static constexpr std::int32_t most_rows = 8192; ///< of a piece

    /// Rows that follow each other on one line.
    struct Piece {
        std::string line;
        std::size_t at = 0; ///< where in the file they begin
        std::int32_t first_record = 0;
        std::int32_t rows = 0;
    };

    /// Names that are empty or taken get one of their own; bytes that cannot be printed become blanks.
    void set_channels(std::vector<DatabaseChannel> channels);
    /// Adds a row that begins at a place of the file, `opens_line` when it is the first of a line.
    void add_row(const std::string & line, bool opens_line, std::size_t at, std::int32_t record);
    std::int64_t found_rows() const { return row_count_; }

private:
    /// Goes through the file and adds up to `most` rows.
    virtual void find_rows(std::int64_t most) = 0;
    /// Makes the rows of a piece the ones that are read.
    virtual void load(const Piece & piece) = 0;
    /// The text of each row that is loaded. symbol: the channel's number, from 1.
    virtual void take_texts(std::int32_t symbol, std::int32_t element, std::vector<std::string> & texts) = 0;

    std::vector<DatabaseLine> listed(std::int64_t most);

    std::vector<DatabaseChannel> channels_;
    std::vector<Piece> pieces_;
    std::int64_t row_count_ = 0;
    std::int32_t loaded_ = 0; // handle of the piece
};
