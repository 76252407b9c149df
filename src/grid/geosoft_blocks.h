#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The shape of a Geosoft grid's body.
struct GeosoftBody {
    std::int32_t elements; ///< along a vector
    std::int32_t vectors;
    std::size_t bytes; ///< of one element

    std::size_t vector_bytes() const { return static_cast<std::size_t>(elements) * bytes; }
};

/// The compressed body of a Geosoft grid: blocks of whole vectors, each a zlib stream of its own. One block is held at a time,
/// so vectors are best asked for in order.
class GeosoftBlocks {
public:
    /// file: all bytes, which must stay in place. Fails with a `Fault` when the table of blocks leads out of the file.
    GeosoftBlocks(std::string_view file, const GeosoftBody & body);

    /// The bytes of a vector, counted from 0; good until the next call. Fails with a `Fault` when its block is damaged.
    const char * vector_at(std::int32_t vector);

private:
    void unpack(std::int32_t block);

    std::string_view file_;
    GeosoftBody body_;
    std::int32_t vectors_per_block_ = 0;
    std::vector<std::string_view> streams_; ///< one for each block
    std::int32_t held_ = -1;                ///< the block in `values_`
    std::vector<char> values_;
};
