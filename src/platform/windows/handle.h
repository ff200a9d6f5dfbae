#pragma once

#include "platform/owner.h"

#include <windows.h>

namespace platform {

/// Calls `function` and puts the thread's last error back after it.
template<class Function> void KeepLastError(Function function)
{
    const DWORD lastError = ::GetLastError();
    function();
    ::SetLastError(lastError);
}

/// Deletes what a class hides behind its pointer, since freeing memory may change the last error.
template<class State> void DeleteState(State *state)
{
    KeepLastError([state] { delete state; });
}

/// Most calls that fail give null; some give -1 instead, and each would take the other's empty
/// value for a handle.
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
using SnapshotHandle = Owner<SnapshotTraits>; ///< toolhelp snapshots, files
using RegistryHandle = Owner<RegistryTraits>; ///< registry keys

} // namespace platform
