#include "support/file_bytes.h"

#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

std::vector<char> read_up_to(std::size_t most, const std::string & path, std::FILE * file)
{
    std::vector<char> held;
    char block[1 << 16];
    for (std::size_t count = 0; (count = std::fread(block, 1, std::min(sizeof block, most - held.size()), file)) > 0;)
        held.insert(held.end(), block, block + count);
    const int error = std::ferror(file) != 0 ? errno : 0;
    std::fclose(file);
    if (error != 0) throw FileFault("cannot read", path, error);
    return held;
}

}

FileBytes::FileBytes(const std::string & path, std::size_t most)
{
    const std::filesystem::path host = host_path(path);
    std::error_code ignored;
    if (std::filesystem::is_directory(host, ignored)) throw FileFault("cannot read", path, EISDIR);
#ifndef _WIN32
    const int descriptor = ::open(host.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) throw FileFault("cannot open", path, errno);
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0 && most > 0) {
        const std::size_t size = std::min(static_cast<std::size_t>(status.st_size), most);
        void * const at = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
        if (at != MAP_FAILED) {
            ::close(descriptor);
            ::madvise(at, size, MADV_SEQUENTIAL);
            data_ = static_cast<const char *>(at);
            size_ = size;
            mapped_ = true;
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

FileBytes::~FileBytes()
{
#ifndef _WIN32
    if (mapped_) ::munmap(const_cast<char *>(data_), size_);
#endif
}

FileBytes::FileBytes(FileBytes && other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)),
      mapped_(std::exchange(other.mapped_, false)), held_(std::move(other.held_))
{
}
