#pragma once

#include "platform/owner.h"

#include <windows.h>

namespace platform {

/// Calls `function` and restores the thread's last error.
template<class Function> void KeepLastError(Function function)
{
    const DWORD lastError = ::GetLastError();
    function();
    ::SetLastError(lastError);
}

/// Deletes a pimpl and keeps the last error, which freeing memory may change.
template<class State> void DeleteState(State *state)
{
    KeepLastError([state] { delete state; });
}

/// Win32 has two invalid values: null (CreateMutex, OpenProcess) and INVALID_HANDLE_VALUE
/// (snapshots).
struct ObjectTraits
{
    using Type = HANDLE;
    static HANDLE Empty()
    {
        return nullptr;
    }
    static void Close(HANDLE handle)
    {
        KeepLastError([handle] { ::CloseHandle(handle); });
    }
};
struct SnapshotTraits : ObjectTraits
{
    static HANDLE Empty()
    {
        return INVALID_HANDLE_VALUE;
    }
};
struct RegistryTraits
{
    using Type = HKEY;
    static HKEY Empty()
    {
        return nullptr;
    }
    static void Close(HKEY key)
    {
        KeepLastError([key] { ::RegCloseKey(key); });
    }
};

using ObjectHandle = Owner<ObjectTraits>;     ///< mutexes, processes
using SnapshotHandle = Owner<SnapshotTraits>; ///< toolhelp snapshots
using RegistryHandle = Owner<RegistryTraits>; ///< registry keys

} // namespace platform
