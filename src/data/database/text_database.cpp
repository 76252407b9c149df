#include "data/database/text_database.h"

#include "support/numbers.h"
#include "support/text.h"

#include <algorithm>
#include <set>

std::int32_t TextDatabase::find_channel(const std::string & name)
{
    const auto found = std::ranges::find(channels_, name, &DatabaseChannel::name);
    return found == channels_.end() ? 0 : static_cast<std::int32_t>(found - channels_.begin()) + 1;
}

void TextDatabase::read_channel(const DatabaseLine & line, std::int32_t symbol, std::int32_t element, ChannelValues & values)
{
    if (loaded_ != line.handle) {
        loaded_ = 0;
        load(pieces_.at(static_cast<std::size_t>(line.handle) - 1));
        loaded_ = line.handle;
    }
    values.type = text_type;
    values.integers.clear();
    values.reals.clear();
    values.texts.clear();
    take_texts(symbol, element, values.texts);
}

std::size_t TextDatabase::row_count(const DatabaseLine & line, std::int32_t)
{
    return static_cast<std::size_t>(pieces_.at(static_cast<std::size_t>(line.handle) - 1).rows);
}

void TextDatabase::set_channels(std::vector<DatabaseChannel> channels)
{
    std::set<std::string> taken;
    std::int32_t number = 0;
    for (DatabaseChannel & channel : channels) {
        ++number;
        std::ranges::replace_if(
            channel.name, [](unsigned char c) { return c < ' ' || c == 127; }, ' ');
        if (!is_utf8(channel.name))
            std::ranges::replace_if(
                channel.name, [](unsigned char c) { return c > 127; }, '?');
        channel.name = trim(channel.name);
        if (channel.name.empty()) channel.name = "Column " + general_text(number);
        const std::string plain = channel.name;
        for (std::int32_t i = 2; !taken.insert(channel.name).second; ++i) channel.name = plain + " (" + general_text(i) + ")";
    }
    channels_ = std::move(channels);
}

void TextDatabase::add_row(const std::string & line, bool opens_line, std::size_t at, std::int32_t record)
{
    if (opens_line || pieces_.empty() || pieces_.back().rows == most_rows) pieces_.push_back({ line, at, record, 0 });
    ++pieces_.back().rows;
    ++row_count_;
}

std::vector<DatabaseLine> TextDatabase::listed(std::int64_t most)
{
    pieces_.clear();
    row_count_ = 0;
    loaded_ = 0;
    find_rows(most);
    std::vector<DatabaseLine> lines;
    for (const Piece & piece : pieces_) lines.push_back({ piece.line, static_cast<std::int32_t>(lines.size()) + 1 });
    return lines;
}
