#include "testkit/fakes/library_load.h"

#include <dlfcn.h>

namespace {

[[gnu::constructor]] void Loaded()
{
    Dl_info info = {};
    if (::dladdr(reinterpret_cast<const void *>(&Loaded), &info) != 0) {
        std::error_code ignored;
        fake::OnLoad(std::filesystem::absolute(info.dli_fname, ignored));
    }
}

} // namespace
