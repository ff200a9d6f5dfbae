#pragma once

#include <cerrno>
#include <unistd.h>

namespace platform {

/// Owns a file descriptor. Empty is -1, since 0 is a descriptor like any other.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : descriptor_(descriptor)
    {
    }
    FileDescriptor(FileDescriptor &&other) noexcept
        : descriptor_(other.Take())
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        if (this != &other) {
            Close();
            descriptor_ = other.Take();
        }
        return *this;
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    ~FileDescriptor()
    {
        Close();
    }

    explicit operator bool() const
    {
        return descriptor_ != kEmpty;
    }
    int Get() const
    {
        return descriptor_;
    }

    /// Closes it; empty then. Keeps `errno`.
    void Close()
    {
        if (descriptor_ != kEmpty) {
            const int lastError = errno;
            ::close(Take());
            errno = lastError;
        }
    }

private:
    static constexpr int kEmpty = -1;

    int Take()
    {
        const int taken = descriptor_;
        descriptor_ = kEmpty;
        return taken;
    }

    int descriptor_ = kEmpty;
};

} // namespace platform
