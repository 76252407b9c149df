#include "data/line_scanner.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t block_size = std::size_t{ 1 } << 14; // stays in the nearest cache while it is taken apart

// The next three look at every byte without an early way out, so that the loops run on vectors.

unsigned char flag(bool set) { return set ? 1 : 0; }

bool is_printable_or(char c, char allowed) { return static_cast<unsigned char>(c - ' ') <= '~' - ' ' || c == allowed; }

bool has_lone_return(std::string_view block)
{
    unsigned char found = 0;
    for (std::size_t i = 0; i + 1 < block.size(); ++i)
        found |= static_cast<unsigned char>(flag(block[i] == '\r') & flag(block[i + 1] != '\n'));
    return found != 0;
}

bool has_only_printable_lines(std::string_view block)
{
    unsigned char odd = 0;
    for (const char c : block) odd |= flag(!is_printable_or(c, '\n'));
    return odd == 0;
}

/// Tabs and carriage returns aside. A tab counts as a blank: that makes a difference only within a quoted text and around the
/// fields between commas.
bool has_harmless_tabs(std::string_view block)
{
    unsigned char odd = 0, tab = 0, mark = 0;
    for (const char c : block) {
        const unsigned char is_tab = flag(c == '\t');
        odd |= static_cast<unsigned char>(flag(!is_printable_or(c, '\n')) & flag(c != '\r') & flag(c != '\t'));
        tab |= is_tab;
        mark |= static_cast<unsigned char>(flag(c == ',') | flag(c == '"'));
    }
    return odd == 0 && (tab == 0 || mark == 0);
}

bool is_plain(std::string_view block, LineReader reader)
{
    if (!block.ends_with('\n')) return false;
    if (reader == LineReader::raw) return !has_lone_return(block);
    return has_only_printable_lines(block) || (has_harmless_tabs(block) && !has_lone_return(block));
}

}

LineScanner::LineScanner(std::string_view text, LineReader reader)
    : reader_(reader), text_(text), at_(text_.data()), block_end_(at_), plain_end_(at_)
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
        if (rest().empty()) return false;
        examine_block();
        if (at_ < plain_end_ && take_plain(line)) return true;
    }
    return read_oddly(line);
}

void LineScanner::examine_block()
{
    std::string_view block = rest().substr(0, block_size);
    const std::size_t last_feed = block.rfind('\n');
    if (last_feed != std::string_view::npos) block = block.substr(0, last_feed + 1);
    block_end_ = block.data() + block.size();
    if (is_plain(block, reader_)) plain_end_ = block_end_;
}

bool LineScanner::read_oddly(std::string_view & line)
{
    std::string_view rest = this->rest();
    const bool read = reader_ == LineReader::raw ? take_raw_line(rest, odd_line_) : take_text_line(rest, odd_line_);
    at_ = text_.data() + (text_.size() - rest.size());
    block_end_ = std::max(block_end_, at_); // a line may run past a block that had no line feed
    line = odd_line_;
    return read;
}

std::int64_t estimate_line_count(std::string_view text)
{
    constexpr std::size_t parts = 64, part_size = 4096;
    const std::size_t step = std::max(text.size() / parts, part_size);
    std::int64_t feeds = 0, returns = 0, bytes = 0;
    for (std::size_t at = 0; at < text.size(); at += step) {
        const std::string_view part = text.substr(at, part_size);
        feeds += std::ranges::count(part, '\n');
        returns += std::ranges::count(part, '\r');
        bytes += std::ssize(part);
    }
    const std::int64_t lines = feeds > 0 ? feeds : returns;
    const double share = bytes > 0 ? static_cast<double>(text.size()) / static_cast<double>(bytes) : 0;
    return static_cast<std::int64_t>(1.02 * static_cast<double>(lines) * share) + 100;
}
