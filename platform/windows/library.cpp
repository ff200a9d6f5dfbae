#include "platform/library.h"

#include <windows.h>

namespace platform {

LibraryHandle LoadLibraryFile(const char *path)
{
    return ::LoadLibraryA(path);
}

FunctionAddress FindFunction(LibraryHandle library, const char *name)
{
    // A null handle would search the program itself.
    if (library == nullptr || name == nullptr) {
        return nullptr;
    }
    const FARPROC address = ::GetProcAddress(static_cast<HMODULE>(library), name);
    return reinterpret_cast<FunctionAddress>(reinterpret_cast<void *>(address));
}

} // namespace platform
