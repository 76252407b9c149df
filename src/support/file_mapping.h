#pragma once

#include <cstddef>
#include <memory>

/// A file mapped to be read. A page that can no longer be read, because the file was cut short or its share went away, reads as
/// NULs from then on instead of ending the process, and `failed` tells of it.
class FileMapping {
public:
    /// Null when the system cannot map it, or holds too many already.
    static std::unique_ptr<FileMapping> of(int descriptor, std::size_t size);
    ~FileMapping();
    FileMapping(const FileMapping &) = delete;
    FileMapping & operator=(const FileMapping &) = delete;

    const char * data() const { return data_; }
    /// Something in it read as NULs that may not be so in the file.
    bool failed() const;

private:
    FileMapping(int slot, const char * data, std::size_t size) : slot_(slot), data_(data), size_(size) {}

    int slot_; // of the table that the fault handler looks into
    const char * data_;
    std::size_t size_;
};
