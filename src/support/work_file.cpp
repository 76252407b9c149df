#include "support/work_file.h"

#include "support/fault.h"
#include "support/paths.h"

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <set>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

constexpr std::string_view prefix = "~WDqvinv3d_", ending = ".tmp";

bool is_work_file_name(std::string_view name)
{
    if (!name.starts_with(prefix) || !name.ends_with(ending) || name.size() <= prefix.size() + ending.size()) return false;
    name = name.substr(prefix.size(), name.size() - prefix.size() - ending.size());
    return name.size() <= 10 && name.find_first_not_of("0123456789") == name.npos;
}

bool is_first_look(const fs::path & folder)
{
    static std::mutex guard;
    static std::set<fs::path> seen;
    const std::lock_guard locked(guard);
    return seen.insert(folder).second;
}

bool is_stale(const fs::directory_entry & entry, std::optional<FileLock> & lock)
{
    std::error_code error;
    if (!is_work_file_name(definition_path(entry.path().filename())) || !fs::is_regular_file(entry.symlink_status(error)))
        return false;
#ifdef _WIN32
    // An open file cannot be deleted here, and one that is just closed waits to take its place.
    return fs::file_time_type::clock::now() - entry.last_write_time(error) > std::chrono::minutes(1) && !error;
#else
    lock = lock_path(definition_path(entry.path()));
    return lock && lock->holds();
#endif
}

void look_for_stale(const fs::path & folder)
{
    if (!is_first_look(folder)) return;
    std::error_code error, ignored;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (std::optional<FileLock> lock; is_stale(*entry, lock)) fs::remove(entry->path(), ignored);
}

/// The path behind a link, so that the link stays.
fs::path target_of(const fs::path & path)
{
    std::error_code error;
    const fs::path whole = fs::absolute(path, error);
    if (!fs::is_symlink(fs::symlink_status(whole, error))) return whole.empty() ? path : whole;
    const fs::path real = fs::canonical(whole, error);
    return error ? whole : real;
}

std::FILE * open_to_write(const fs::path & path, [[maybe_unused]] bool anew)
{
#ifdef _WIN32
    return ::_wfopen(path.c_str(), anew ? L"wbx" : L"wb");
#else
    return std::fopen(path.c_str(), anew ? "wbxe" : "wbe");
#endif
}

/// The errno that keeps a file from being replaced; 0 when it may be.
int refusal(const fs::path & target, const fs::file_status & status)
{
    if (fs::is_directory(status)) return EISDIR;
#ifdef _WIN32
    return ::_waccess(target.c_str(), 2) == 0 ? 0 : errno;
#else
    return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
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

std::string new_work_file_name(const std::string & folder) { return make_temp_file_name(folder, prefix); }

void delete_stale_work_files(const std::string & folder)
{
    std::error_code error;
    look_for_stale(folder.empty() ? fs::temp_directory_path(error) : host_path(folder));
}

NewFile::NewFile(const std::string & path) : path_(path), target_(target_of(host_path(path)))
{
    std::error_code unknown;
    const fs::file_status before = fs::status(target_, unknown);
    const bool is_there = fs::exists(before);
    if (const int error = is_there ? refusal(target_, before) : 0; error != 0) throw FileFault("cannot create", path_, error);
    if (is_there && !fs::is_regular_file(before))
        stream_ = open_to_write(target_, false);
    else
        open_beside();
    if (stream_ == nullptr) throw FileFault("cannot create", path_, errno);
    if (is_there && !work_.empty()) fs::permissions(work_, before.permissions(), unknown);
}

/// A name may be taken, and another program may take the new file for a stale one until it is locked.
void NewFile::open_beside()
{
    const fs::path folder = target_.parent_path();
    look_for_stale(folder);
    constexpr int most_attempts = 20;
    for (int attempt = 1; attempt <= most_attempts; ++attempt) {
        fs::path name = host_path(new_work_file_name(definition_path(folder)));
        stream_ = open_to_write(name, true);
        if (stream_ == nullptr && errno == EEXIST) continue;
        if (stream_ == nullptr) return;
        std::optional<FileLock> lock = lock_open_file(stream_);
        std::error_code error;
        if (lock && fs::exists(name, error)) {
            lock_ = std::move(*lock);
            work_ = std::move(name);
            return;
        }
        static_cast<void>(std::fclose(std::exchange(stream_, nullptr))); // nothing has been written
    }
    errno = EEXIST;
}

NewFile::~NewFile() { drop(); }

NewFile::NewFile(NewFile && other) noexcept
    : path_(std::move(other.path_)), target_(std::move(other.target_)), work_(std::exchange(other.work_, {})),
      stream_(std::exchange(other.stream_, nullptr)), lock_(std::move(other.lock_))
{
}

void NewFile::drop() noexcept
{
    std::error_code ignored;
    if (stream_ != nullptr) static_cast<void>(std::fclose(std::exchange(stream_, nullptr))); // it is given up
    if (!work_.empty()) fs::remove(work_, ignored);
    work_.clear();
}

void NewFile::finish(bool durable)
{
    const bool kept = !durable || flush_to_disk(stream_);
    const int error = errno;
    if (std::fclose(std::exchange(stream_, nullptr)) != 0) throw FileFault("cannot write", path_, errno);
    if (!kept) throw FileFault("cannot write", path_, error);
    if (work_.empty()) return;
    std::error_code failed;
    fs::rename(work_, target_, failed);
    if (failed) throw FileFault("cannot replace", path_, failed.message());
    work_.clear();
    lock_ = {};
}
