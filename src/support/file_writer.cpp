#include "support/file_writer.h"

#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr std::size_t buffer_size = std::size_t{ 1 } << 18;
constexpr std::size_t largest_room = std::size_t{ 1 } << 16;

std::FILE * open_for_writing(const std::string & path)
{
#ifdef _WIN32
    return ::_wfopen(host_path(path).c_str(), L"wb");
#else
    return std::fopen(host_path(path).c_str(), "wbe");
#endif
}

bool flush_to_disk(std::FILE * file)
{
#ifdef _WIN32
    return ::_commit(::_fileno(file)) == 0;
#else
    return ::fsync(::fileno(file)) == 0 || errno == EINVAL; // a device or pipe has no disk to wait for
#endif
}

}

FileWriter::FileWriter(const std::string & path) : path_(path), file_(open_for_writing(path)), buffer_(buffer_size)
{
    if (file_ == nullptr) throw FileFault("cannot create", path_, errno);
    std::setvbuf(file_, nullptr, _IONBF, 0);
}

FileWriter::~FileWriter()
{
    if (file_ == nullptr) return;
    std::fwrite(buffer_.data(), 1, used_, file_);
    std::fclose(file_);
}

FileWriter::FileWriter(FileWriter && other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, nullptr)), buffer_(std::move(other.buffer_)),
      used_(std::exchange(other.used_, 0))
{
}

void FileWriter::text(std::string_view text)
{
    if (text.size() > largest_room) { // large enough to be written as it lies
        flush();
        write(text.data(), text.size());
        return;
    }
    while (!text.empty()) {
        if (used_ == buffer_.size()) flush();
        const std::size_t count = std::min(text.size(), buffer_.size() - used_);
        std::memcpy(buffer_.data() + used_, text.data(), count);
        used_ += count;
        text.remove_prefix(count);
    }
}

void FileWriter::line(std::string_view text)
{
    this->text(text);
    this->text("\r\n");
}

char * FileWriter::room(std::size_t size)
{
    if (size > largest_room) throw Fault("too large a block for the output buffer");
    if (buffer_.size() - used_ < size) flush();
    return buffer_.data() + used_;
}

void FileWriter::flush() { write(buffer_.data(), std::exchange(used_, 0)); }

void FileWriter::write(const char * bytes, std::size_t count)
{
    if (count > 0 && std::fwrite(bytes, 1, count, file_) != count) throw FileFault("cannot write", path_, errno);
}

void FileWriter::close(bool durable)
{
    if (file_ == nullptr) return;
    flush();
    const bool kept = !durable || flush_to_disk(file_);
    const int error = errno;
    if (std::fclose(std::exchange(file_, nullptr)) != 0) throw FileFault("cannot write", path_, errno);
    if (!kept) throw FileFault("cannot write", path_, error);
}

void replace_file(const std::string & path, std::string_view content)
{
    const std::string folder = folder_of_path(path);
    const std::string temporary = make_temp_file_name(folder.empty() ? current_folder() : folder, "~WD");
    try {
        FileWriter file(temporary);
        file.text(content);
        file.close(true);
        std::filesystem::rename(host_path(temporary), host_path(path));
    } catch (const std::filesystem::filesystem_error & error) {
        delete_file(temporary);
        throw FileFault("cannot replace", path, error.code().message());
    } catch (const Fault &) {
        delete_file(temporary);
        throw;
    }
}

void copy_file(const std::string & source, const std::string & target)
{
    std::error_code failed, ignored;
    const std::filesystem::path from = host_path(source), to = host_path(target);
    if (!std::filesystem::is_regular_file(from, ignored)) throw FileFault("cannot copy", source, "there is no such file");
    if (std::filesystem::equivalent(from, to, ignored)) return;
    std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, failed);
    if (failed) throw FileFault("cannot copy to " + target, source, failed.message());
}
