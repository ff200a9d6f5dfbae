#pragma once

#include <filesystem>
#include <memory>

namespace os {

/// A shared or exclusive lock on a file. It ends with this process, and child processes do not
/// inherit it.
class FileLock
{
public:
    enum class Mode
    {
        Shared,
        Exclusive
    };

    /// Opens `file`, which is created when missing and never removed.
    explicit FileLock(const std::filesystem::path &file);
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;
    FileLock(FileLock &&) = delete;
    FileLock &operator=(FileLock &&) = delete;
    /// Releases the lock.
    ~FileLock();

    /// Waits for the lock without a limit. False if the file cannot be locked at all.
    bool Take(Mode mode);

    /// Takes the lock if it is free for this mode.
    bool TryTake(Mode mode);

private:
    struct File;
    std::unique_ptr<File> file_;
};

} // namespace os
