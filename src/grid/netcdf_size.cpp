#include "grid/netcdf_size.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

using namespace std::string_view_literals;

/// Reads the fields of a header one after the other; past the end of the bytes all of them are 0 and `is_short` tells.
class HeaderReader {
public:
    HeaderReader(std::string_view bytes, std::size_t at) : bytes_(bytes), at_(at) {}

    std::uint64_t big_endian(std::size_t size)
    {
        std::uint64_t number = 0;
        for (const char c : take(size)) number = number << 8 | static_cast<unsigned char>(c);
        return number;
    }
    std::uint64_t little_endian(std::size_t size)
    {
        std::uint64_t number = 0, shift = 0;
        for (const char c : take(size))
            number |= std::uint64_t{ static_cast<unsigned char>(c) } << std::exchange(shift, shift + 8);
        return number;
    }
    void skip(std::uint64_t size) { take(size); }
    bool is_short() const { return short_; }

private:
    std::string_view take(std::uint64_t size)
    {
        short_ = short_ || at_ > bytes_.size() || size > bytes_.size() - at_;
        if (short_) return {};
        const std::string_view taken = bytes_.substr(at_, size);
        at_ += size;
        return taken;
    }

    std::string_view bytes_;
    std::size_t at_;
    bool short_ = false;
};

/// The header of the classic forms: dimensions, attributes, variables. Form 1 has short offsets, form 5 long counts.
class ClassicHeader {
public:
    ClassicHeader(std::string_view bytes, int form)
        : reader_(bytes, 4), count_size_(form == 5 ? 8 : 4), offset_size_(form == 1 ? 4 : 8)
    {
    }

    std::uint64_t promised_size()
    {
        count(); // records
        each([&] { name(), count(); });
        attributes();
        std::uint64_t size = 0;
        each([&] { size = std::max(size, end_of_variable()); });
        return reader_.is_short() ? std::numeric_limits<std::uint64_t>::max() : size;
    }

private:
    static std::uint64_t padded(std::uint64_t size) { return (size + 3) / 4 * 4; }
    static std::uint64_t type_size(std::uint64_t type)
    {
        constexpr std::uint64_t sizes[] = { 1, 1, 1, 2, 4, 4, 8, 1, 2, 4, 8, 8 }; // from type 0, which does not exist
        return type < std::size(sizes) ? sizes[type] : 8;
    }

    std::uint64_t count() { return reader_.big_endian(count_size_); }
    void name() { reader_.skip(padded(count())); }

    template <class Item>
    void each(Item item)
    {
        reader_.skip(4); // what kind of list
        for (std::uint64_t left = count(); left > 0 && !reader_.is_short(); --left) item();
    }

    void attributes()
    {
        each([&] {
            name();
            const std::uint64_t type = reader_.big_endian(4);
            reader_.skip(padded(count() * type_size(type)));
        });
    }

    std::uint64_t end_of_variable()
    {
        name();
        reader_.skip(count() * count_size_); // its dimensions
        attributes();
        reader_.skip(4); // its type
        const std::uint64_t size = count(), start = reader_.big_endian(offset_size_);
        constexpr std::uint64_t padding = 3, unknown = 0xFFFFFFFF - padding; // sizes beyond 32 bits are not told
        return size > padding && size < unknown ? start + size - padding : start;
    }

    HeaderReader reader_;
    std::size_t count_size_, offset_size_;
};

std::uint64_t promised_hdf5_size(std::string_view bytes)
{
    const int version = bytes.size() > 13 ? bytes[8] : -1;
    if (version < 0 || version > 3) return 0;
    const auto address_size = std::size_t{ static_cast<unsigned char>(bytes[version < 2 ? 13 : 9]) };
    if (address_size > 8) return 0;
    constexpr std::size_t first_address[] = { 24, 28, 12, 12 }; // then another, then that of the file's end
    HeaderReader reader(bytes, first_address[version]);
    reader.skip(2 * address_size);
    return bytes.size() > 64 ? reader.little_endian(address_size) : 0;
}

}

std::uint64_t promised_netcdf_size(std::string_view bytes)
{
    if (bytes.starts_with("\x89HDF"sv)) return promised_hdf5_size(bytes);
    if (!bytes.starts_with("CDF"sv) || bytes.size() < 4) return 0;
    return ClassicHeader(bytes, bytes[3]).promised_size();
}
