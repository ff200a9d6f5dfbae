#pragma once

#include "tests/unit/platform/support/system.h"

#include <string>

namespace contract {

/// The values under HKEY_LOCAL_MACHINE that this process sees for as long as the object lives: only
/// those given here. On Linux other programs in its folder see them, too; on Windows no other
/// process does. The machine's own registry stays as it is. One object at a time.
class RegistryValues
{
public:
    RegistryValues();

    /// Makes a key exist.
    static void Create(const std::string &key);
    /// Sets a value to these bytes; `type` is its registry type, such as REG_SZ (1).
    static void
    Set(const std::string &key, const std::string &name, const std::string &data, int type = 1);
    /// A text value with its terminating NUL.
    static void SetText(const std::string &key, const std::string &name, const std::string &text)
    {
        Set(key, name, text + '\0');
    }

private:
    Held removal_;
};

} // namespace contract
