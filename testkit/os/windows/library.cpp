#include "testkit/os/os.h"

#include <windows.h>

namespace os {

void UnloadLibrary(void *library)
{
    ::FreeLibrary(static_cast<HMODULE>(library));
}

bool IsLibraryLoaded(const std::filesystem::path &path)
{
    return ::GetModuleHandleW(path.c_str()) != nullptr;
}

} // namespace os
