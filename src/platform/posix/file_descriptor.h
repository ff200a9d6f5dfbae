#pragma once

#include "platform/owner.h"

#include <cerrno>
#include <dirent.h>
#include <unistd.h>

namespace platform {

/// Calls `function` and restores `errno`.
template<class Function> void KeepErrno(Function function)
{
    const int lastError = errno;
    function();
    errno = lastError;
}

/// Deletes a pimpl and keeps `errno`, which freeing memory may change.
template<class State> void DeleteState(State *state)
{
    KeepErrno([state] { delete state; });
}

struct DescriptorTraits
{
    using Type = int;
    static int Empty()
    {
        return -1; // 0 is a valid descriptor
    }
    static void Close(int descriptor)
    {
        KeepErrno([descriptor] { ::close(descriptor); });
    }
};
struct FolderTraits
{
    using Type = DIR *;
    static DIR *Empty()
    {
        return nullptr;
    }
    static void Close(DIR *folder)
    {
        KeepErrno([folder] { ::closedir(folder); });
    }
};

using FileDescriptor = Owner<DescriptorTraits>;
using FolderStream = Owner<FolderTraits>;

} // namespace platform
