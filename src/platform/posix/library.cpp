#include "platform/library.h"

#include <dlfcn.h>

namespace platform {

LibraryHandle LoadLibraryFile(const char *path)
{
    // Null and the empty name would both mean the program itself.
    if (path == nullptr || *path == '\0') {
        return nullptr;
    }
    return ::dlopen(path, RTLD_NOW | RTLD_LOCAL);
}

FunctionAddress FindFunction(LibraryHandle library, const char *name)
{
    // A null handle would search everything that is loaded.
    if (library == nullptr || name == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<FunctionAddress>(::dlsym(library, name));
}

} // namespace platform
