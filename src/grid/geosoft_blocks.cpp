#include "grid/geosoft_blocks.h"

#include "support/fault.h"

#include <algorithm>
#include <cstring>
#include <zlib.h>

namespace {

constexpr std::size_t count_offset = 520, vectors_offset = 524, table_offset = 528, block_head = 16;
constexpr std::size_t greatest_ratio = 1040; // no zlib stream unpacks to more than about 1032 times its size

template <class T>
T number_at(std::string_view bytes, std::size_t offset)
{
    T number;
    std::memcpy(&number, bytes.data() + offset, sizeof(T));
    return number;
}

}

GeosoftBlocks::GeosoftBlocks(std::string_view file, const GeosoftBody & body) : file_(file), body_(body)
{
    if (file.size() < table_offset) throw Fault("it is cut short: its table of blocks is missing");
    const auto count = number_at<std::int32_t>(file, count_offset);
    vectors_per_block_ = number_at<std::int32_t>(file, vectors_offset);
    if (count <= 0 || vectors_per_block_ <= 0 || std::int64_t{ count } * vectors_per_block_ < body.vectors)
        throw Fault("its table of blocks does not hold all its rows");
    if (body.vector_bytes() / greatest_ratio * static_cast<std::size_t>(body.vectors) > file.size())
        throw Fault("it is cut short: it holds fewer values than its header says");
    const auto blocks = static_cast<std::size_t>(count);
    if ((file.size() - table_offset) / 12 < blocks) throw Fault("it is cut short: its table of blocks is incomplete");
    for (std::size_t i = 0; i < blocks; ++i) {
        const auto offset = number_at<std::int64_t>(file, table_offset + 8 * i);
        const auto size = number_at<std::int32_t>(file, table_offset + 8 * blocks + 4 * i);
        const auto end_of_file = static_cast<std::int64_t>(file.size());
        if (offset < 0 || offset > end_of_file || size < static_cast<std::int32_t>(block_head) || size > end_of_file - offset)
            throw Fault("it is cut short: a block of values lies outside the file");
        streams_.push_back(file.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(size)).substr(block_head));
    }
}

const char * GeosoftBlocks::vector_at(std::int32_t vector)
{
    const std::int32_t block = vector / vectors_per_block_;
    if (block != held_) unpack(block);
    return values_.data() + static_cast<std::size_t>(vector % vectors_per_block_) * body_.vector_bytes();
}

void GeosoftBlocks::unpack(std::int32_t block)
{
    held_ = -1;
    const std::int64_t vectors =
        std::min<std::int64_t>(vectors_per_block_, body_.vectors - std::int64_t{ block } * vectors_per_block_);
    const std::string_view stream = streams_[static_cast<std::size_t>(block)];
    const std::size_t size = static_cast<std::size_t>(vectors) * body_.vector_bytes();
    if (size / greatest_ratio > stream.size()) throw Fault("a block of values is too short for its rows");
    values_.resize(size);
    uLongf unpacked = static_cast<uLongf>(size);
    const int result = ::uncompress(reinterpret_cast<Bytef *>(values_.data()), &unpacked,
                                    reinterpret_cast<const Bytef *>(stream.data()), static_cast<uLong>(stream.size()));
    // The last block may hold more rows than the grid has; those that are wanted are there when the room is full.
    if (unpacked != size || (result != Z_OK && result != Z_BUF_ERROR)) throw Fault("a block of values is damaged");
    held_ = block;
}
