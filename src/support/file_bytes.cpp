#include "support/file_bytes.h"

#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

#ifndef _WIN32
constexpr std::size_t least_mapped = std::size_t{ 1 } << 20; // a mapping is worth its while from here on
#endif

std::vector<char> read_up_to(std::size_t most, const std::string & path, std::FILE * file)
{
    std::vector<char> held;
    char block[1 << 16];
    for (std::size_t count = 0; (count = std::fread(block, 1, std::min(sizeof block, most - held.size()), file)) > 0;)
        held.insert(held.end(), block, block + count);
    const int error = std::ferror(file) != 0 ? errno : 0;
    static_cast<void>(std::fclose(file)); // only read from
    if (error != 0) throw FileFault("cannot read", path, error);
    return held;
}

}

FileBytes::FileBytes(const std::string & path, std::size_t most) : path_(path)
{
    const std::filesystem::path host = host_path(path);
    std::error_code ignored;
    if (std::filesystem::is_directory(host, ignored)) throw FileFault("cannot read", path, EISDIR);
#ifndef _WIN32
    const int descriptor = ::open(host.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) throw FileFault("cannot open", path, errno);
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        const std::size_t size = std::min(static_cast<std::size_t>(status.st_size), most);
        if (size >= least_mapped) mapping_ = FileMapping::of(descriptor, size);
        if (mapping_) {
            ::close(descriptor);
            data_ = mapping_->data();
            size_ = size;
            return;
        }
    }
    std::FILE * const file = ::fdopen(descriptor, "rb");
#else
    std::FILE * const file = ::_wfopen(host.c_str(), L"rb");
#endif
    if (file == nullptr) throw FileFault("cannot open", path, errno);
    held_ = read_up_to(most, path, file);
    data_ = held_.data();
    size_ = held_.size();
}

void FileBytes::verify() const
{
    if (mapping_ && mapping_->failed()) throw FileFault("cannot go on reading", path_, EIO);
}
