#pragma once

#include <windows.h>

namespace platform {

/// Most calls that fail give null; some give -1 instead, and each would take the other's empty
/// value for a handle.
struct EmptyIsNull
{
    static HANDLE Empty()
    {
        return nullptr;
    }
};
struct EmptyIsInvalid
{
    static HANDLE Empty()
    {
        return INVALID_HANDLE_VALUE;
    }
};

/// Owns a kernel handle whose empty value `Emptiness` knows.
template<class Emptiness> class Handle
{
public:
    Handle() = default;
    explicit Handle(HANDLE handle)
        : handle_(handle)
    {
    }
    Handle(Handle &&other) noexcept
        : handle_(other.Take())
    {
    }
    Handle &operator=(Handle &&other) noexcept
    {
        if (this != &other) {
            Close();
            handle_ = other.Take();
        }
        return *this;
    }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;
    ~Handle()
    {
        Close();
    }

    explicit operator bool() const
    {
        return handle_ != Emptiness::Empty();
    }
    HANDLE Get() const
    {
        return handle_;
    }

    /// Closes it; empty then. Keeps the last error.
    void Close()
    {
        if (handle_ != Emptiness::Empty()) {
            const DWORD lastError = ::GetLastError();
            ::CloseHandle(Take());
            ::SetLastError(lastError);
        }
    }

private:
    HANDLE Take()
    {
        auto *const taken = handle_;
        handle_ = Emptiness::Empty();
        return taken;
    }

    HANDLE handle_ = Emptiness::Empty();
};

using ObjectHandle = Handle<EmptyIsNull>;      ///< mutexes, processes
using SnapshotHandle = Handle<EmptyIsInvalid>; ///< toolhelp snapshots, files

} // namespace platform
