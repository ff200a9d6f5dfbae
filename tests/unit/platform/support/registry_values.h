#pragma once

#include <string>

namespace contract {

/// The values under HKEY_LOCAL_MACHINE that this process sees for as long as the object lives: none
/// but those given here. On Linux the other programs in its folder see them, too, on Windows nobody
/// else does. The machine's own registry stays as it is. One object at a time.
class RegistryValues
{
public:
    RegistryValues();
    ~RegistryValues();
    RegistryValues(const RegistryValues &) = delete;
    RegistryValues &operator=(const RegistryValues &) = delete;
    RegistryValues(RegistryValues &&) = delete;
    RegistryValues &operator=(RegistryValues &&) = delete;

    /// Makes a key exist.
    void Create(const std::string &key);
    /// Gives a value its bytes as they are; `type` is the registry's number for it, 1 a text.
    void
    Set(const std::string &key, const std::string &name, const std::string &data, int type = 1);
    /// A text value with its terminating zero.
    void SetText(const std::string &key, const std::string &name, const std::string &text);
};

} // namespace contract
