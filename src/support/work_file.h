#pragma once

#include "support/file_lock.h"

#include <cstdio>
#include <filesystem>
#include <string>

// Working files: temporary files of this program, named "~WDqvinv3d_", digits and ".tmp". Each is locked by the process that uses
// it, so that one left behind by a killed process can be told from one in use, on whatever computer.

/// A new name for one in the folder, or in the system's temporary one when empty. No file is created.
std::string new_work_file_name(const std::string & folder);

/// Deletes the working files in the folder that no process uses any more; looks once per folder and process. Never fails.
void delete_stale_work_files(const std::string & folder);

/// A file made anew: until it is whole it is a working file beside the one whose place it then takes, so that whatever happens
/// there is the old file, the new one or none. A device or pipe is written as it stands.
///
/// Fails with a `FileFault` that names the path. One that is destroyed before `finish` leaves no trace.
class NewFile {
public:
    /// path: a definition path.
    explicit NewFile(const std::string & path);
    ~NewFile();
    NewFile(NewFile && other) noexcept;
    NewFile(const NewFile &) = delete;
    NewFile & operator=(const NewFile &) = delete;
    NewFile & operator=(NewFile &&) = delete;

    const std::string & path() const { return path_; }
    std::FILE * stream() const { return stream_; }
    /// Where the bytes go meanwhile.
    const std::filesystem::path & place() const { return work_.empty() ? target_ : work_; }

    /// Closes, which is checked, and takes the place; `durable` first waits until the disk has it. Once only.
    void finish(bool durable);

private:
    void open_beside();
    void drop() noexcept;

    std::string path_;
    std::filesystem::path target_; ///< absolute, behind any link
    std::filesystem::path work_;   ///< empty once it has taken the place, and for a device
    std::FILE * stream_ = nullptr;
    FileLock lock_;
};
