#pragma once

#include <utility>
#include <windows.h>

namespace contract {

/// Lets every call of one imported Windows function in this program lead to another function, as
/// long as the object lives. The linker's name for the place of the import's address is `__imp_`
/// and the function's name: declare it as `extern "C" decltype(&::Function) __imp_Function;`.
template<class Function> class ReplacedImport
{
public:
    ReplacedImport(Function &import, Function replacement)
        : import_(import)
    {
        DWORD before = 0; // the linker may have put the table into memory that is only read
        ::VirtualProtect(&import_, sizeof(import_), PAGE_READWRITE, &before);
        original_ = std::exchange(import_, replacement);
    }
    ~ReplacedImport()
    {
        import_ = original_;
    }
    ReplacedImport(const ReplacedImport &) = delete;
    ReplacedImport &operator=(const ReplacedImport &) = delete;
    ReplacedImport(ReplacedImport &&) = delete;
    ReplacedImport &operator=(ReplacedImport &&) = delete;

private:
    Function &import_;
    Function original_ = nullptr;
};

} // namespace contract
