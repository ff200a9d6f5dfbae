#pragma once

#include <string>

namespace contract {

/// Values under HKEY_LOCAL_MACHINE for the programs in the folder of this one, for as long as the
/// object lives. The keys of the product are free before and gone after.
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
