#include "support/file_writer.h"

#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace {

constexpr std::size_t buffer_size = std::size_t{ 1 } << 18;
constexpr std::size_t largest_room = std::size_t{ 1 } << 16;

}

FileWriter::FileWriter(const std::string & path) : file_(path), buffer_(buffer_size)
{
    static_cast<void>(std::setvbuf(file_.stream(), nullptr, _IONBF, 0)); // with a buffer of its own it only goes slower
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
    if (count > 0 && std::fwrite(bytes, 1, count, file_.stream()) != count) throw FileFault("cannot write", file_.path(), errno);
}

void FileWriter::close(bool durable)
{
    if (file_.stream() == nullptr) return;
    flush();
    file_.finish(durable);
}

void replace_file(const std::string & path, std::string_view content)
{
    FileWriter file(path);
    file.text(content);
    file.close(true);
}

void copy_file(const std::string & source, const std::string & target)
{
    std::error_code failed, ignored;
    const std::filesystem::path from = host_path(source), to = host_path(target);
    if (!std::filesystem::is_regular_file(from, ignored)) throw FileFault("cannot copy", source, "there is no such file");
    if (std::filesystem::equivalent(from, to, ignored)) return;
    NewFile copy(target);
    std::filesystem::copy_file(from, copy.place(), std::filesystem::copy_options::overwrite_existing, failed);
    if (failed) throw FileFault("cannot copy to " + target, source, failed.message());
    // The copy of a protected file is the program's own, which the next run replaces.
    std::filesystem::permissions(copy.place(), std::filesystem::perms::owner_write, std::filesystem::perm_options::add, ignored);
    copy.finish(false);
}
