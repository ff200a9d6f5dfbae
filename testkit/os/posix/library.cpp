#include "testkit/os/os.h"

#include <dlfcn.h>

namespace os {

void UnloadLibrary(void *library)
{
    ::dlclose(library);
}

bool IsLibraryLoaded(const std::filesystem::path &path)
{
    void *const library = ::dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (library != nullptr) {
        ::dlclose(library); // RTLD_NOLOAD has counted as a load, too
    }
    return library != nullptr;
}

} // namespace os
