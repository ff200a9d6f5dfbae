#pragma once

#include "tests/unit/platform/support/system.h"

#include <utility>
#include <windows.h>

namespace contract {

/// Redirects every call of an imported Windows function in this program to `replacement`, as long
/// as the object lives. `import` is the function's entry in the import address table: declare it as
/// `extern "C" decltype(&::Function) __imp_Function;`.
template<class Function> Held ReplaceImport(Function &import, Function replacement)
{
    DWORD before = 0; // the linker may have put the table into read-only memory
    ::VirtualProtect(&import, sizeof(import), PAGE_READWRITE, &before);
    Function original = std::exchange(import, replacement);
    return AtEnd([&import, original] { import = original; });
}

} // namespace contract
