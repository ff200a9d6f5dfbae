#include "platform/library.h"

#include <windows.h>

namespace platform {

LibraryHandle LoadLibraryFile(const char *path)
{
    // Without these flags, Windows shows a message box about a damaged library.
    DWORD modeBefore = 0;
    ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &modeBefore);
    const LibraryHandle library = ::LoadLibraryA(path);
    ::SetThreadErrorMode(modeBefore, nullptr);
    return library;
}

FunctionAddress FindFunction(LibraryHandle library, const char *name)
{
    // A null handle would search the program itself.
    if (library == nullptr || name == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<FunctionAddress>(::GetProcAddress(static_cast<HMODULE>(library), name));
}

} // namespace platform
