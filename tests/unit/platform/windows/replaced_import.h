#pragma once

#include "tests/unit/platform/support/system.h"

#include <utility>
#include <windows.h>

namespace contract {

/// Lets every call of one imported Windows function in this program lead to `replacement`, as long
/// as the object lives. The linker's name for the place of the import's address is `__imp_` and the
/// function's name: declare it as `extern "C" decltype(&::Function) __imp_Function;`.
template<class Function> Held ReplaceImport(Function &import, Function replacement)
{
    DWORD before = 0; // the linker may have put the table into read-only memory
    ::VirtualProtect(&import, sizeof(import), PAGE_READWRITE, &before);
    Function original = std::exchange(import, replacement);
    return AtEnd([&import, original] { import = original; });
}

} // namespace contract
