#pragma once

#include <filesystem>
#include <memory>

namespace os {

/// A lock on a file, which many may share or one may have alone. It is tied to this process: it
/// ends with it, and no process started from here inherits it.
class FileLock
{
public:
    enum class Mode
    {
        Shared,
        Alone
    };

    /// Opens `file`, which is created when missing and never removed.
    explicit FileLock(const std::filesystem::path &file);
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;
    FileLock(FileLock &&) = delete;
    FileLock &operator=(FileLock &&) = delete;
    /// Gives the lock up.
    ~FileLock();

    /// Takes the lock, waiting as long as it takes. False when the file cannot be locked at all.
    bool Take(Mode mode);

    /// Takes the lock unless another process has it in a way that forbids it.
    bool TryTake(Mode mode);

private:
    struct File;
    std::unique_ptr<File> file_;
};

} // namespace os
