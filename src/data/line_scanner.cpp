#include "data/line_scanner.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t block_size = std::size_t{ 1 } << 16;

std::int64_t count_of(std::string_view text, char wanted)
{
    std::int64_t total = 0;
    while (!text.empty()) { // parts short enough for a count of one byte, which lets the compiler take 16 bytes at a time
        const std::string_view part = text.substr(0, 240);
        std::uint8_t count = 0;
        for (const char c : part) count = static_cast<std::uint8_t>(count + (c == wanted ? 1 : 0));
        total += count;
        text.remove_prefix(part.size());
    }
    return total;
}

/// What stands in a block that ends in a line feed.
struct BlockBytes {
    unsigned char lone_return = 0, unprintable = 0, tab = 0, comma_or_quote = 0;
};

BlockBytes bytes_of(std::string_view block)
{
    BlockBytes found; // no early exit: the loop then runs on vectors
    const auto * const bytes = reinterpret_cast<const unsigned char *>(block.data());
    for (std::size_t i = 0; i + 1 < block.size(); ++i) {
        const unsigned char c = bytes[i];
        const unsigned char is_return = c == '\r';
        const unsigned char is_tab = c == '\t';
        const unsigned char is_feed = c == '\n';
        const unsigned char outside = static_cast<unsigned char>(c - ' ') > '~' - ' ';
        found.lone_return |= static_cast<unsigned char>(is_return & static_cast<unsigned char>(bytes[i + 1] != '\n'));
        found.unprintable |= static_cast<unsigned char>(outside & ~(is_return | is_tab | is_feed));
        found.tab |= is_tab;
        found.comma_or_quote |= static_cast<unsigned char>((c == ',') | (c == '"'));
    }
    return found;
}

bool is_plain(std::string_view block, LineReader reader)
{
    if (!block.ends_with('\n')) return false;
    const BlockBytes found = bytes_of(block);
    if (found.lone_return != 0) return false;
    if (reader == LineReader::raw) return true;
    // A tab counts as a blank. That makes a difference only within a quoted text and around the fields between commas.
    return found.unprintable == 0 && (found.tab == 0 || found.comma_or_quote == 0);
}

}

LineScanner::LineScanner(TextFile & file, LineReader reader)
    : file_(file), reader_(reader), text_(file.all()), at_(text_.data()), block_end_(at_), plain_end_(at_)
{
}

bool LineScanner::take_plain(std::string_view & line)
{
    const auto * const end = static_cast<const char *>(std::memchr(at_, '\n', static_cast<std::size_t>(plain_end_ - at_)));
    auto size = static_cast<std::size_t>(end - at_);
    if (size > 0 && end[-1] == '\r') --size;
    if (reader_ == LineReader::printable && size >= longest_text_line) return false;
    line = { at_, size };
    at_ = end + 1;
    return true;
}

bool LineScanner::next_examined(std::string_view & line)
{
    if (at_ == block_end_) {
        if (bytes_read() == bytes_total()) return false;
        examine_block();
        if (at_ < plain_end_ && take_plain(line)) return true;
    }
    return read_oddly(line);
}

void LineScanner::examine_block()
{
    block_begun_ = true;
    std::string_view block = text_.substr(static_cast<std::size_t>(bytes_read()), block_size);
    const std::size_t last_feed = block.rfind('\n');
    if (last_feed != std::string_view::npos) block = block.substr(0, last_feed + 1);
    block_end_ = block.data() + block.size();
    if (is_plain(block, reader_)) plain_end_ = block_end_;
}

bool LineScanner::read_oddly(std::string_view & line)
{
    file_.rewind();
    file_.skip(static_cast<std::size_t>(bytes_read()));
    const bool read = reader_ == LineReader::raw ? read_raw_line(file_, odd_line_) : read_text_line(file_, odd_line_);
    at_ = text_.data() + (text_.size() - file_.rest().size());
    block_end_ = std::max(block_end_, at_); // a line may run past a block that had no line feed
    line = odd_line_;
    return read;
}

std::int64_t estimate_line_count(std::string_view text)
{
    const std::int64_t feeds = count_of(text, '\n');
    return (feeds > 0 ? feeds : count_of(text, '\r')) + 1;
}
