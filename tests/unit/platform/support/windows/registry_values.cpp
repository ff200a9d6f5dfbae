#include "tests/unit/platform/support/registry_values.h"

#include <windows.h>

#include <stdexcept>

namespace contract {

namespace {

// Deleted with the user's session at the latest, also when this process was killed.
constexpr DWORD kVolatile = REG_OPTION_VOLATILE;

// The key below HKEY_CURRENT_USER that replaces HKEY_LOCAL_MACHINE in this process.
const std::string &OwnMachine()
{
    static const std::string key =
        "Software\\KtrContract_" + std::to_string(::GetCurrentProcessId());
    return key;
}

HKEY Created(HKEY root, const std::string &key)
{
    HKEY opened = nullptr;
    ::RegCreateKeyExA(
        root, key.c_str(), 0, nullptr, kVolatile, KEY_ALL_ACCESS, nullptr, &opened, nullptr);
    return opened;
}

} // namespace

RegistryValues::RegistryValues()
    : removal_(AtEnd([] {
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        ::RegDeleteTreeA(HKEY_CURRENT_USER, OwnMachine().c_str());
    }))
{
    // An earlier process may have had the same number.
    ::RegDeleteTreeA(HKEY_CURRENT_USER, OwnMachine().c_str());
    HKEY machine = Created(HKEY_CURRENT_USER, OwnMachine());
    // A null key would bring the machine's own registry back.
    const bool replaced =
        machine != nullptr && ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine) == ERROR_SUCCESS;
    ::RegCloseKey(machine);
    if (!replaced) {
        throw std::runtime_error("HKEY_LOCAL_MACHINE could not be redirected");
    }
}

void RegistryValues::Create(const std::string &key)
{
    ::RegCloseKey(Created(HKEY_LOCAL_MACHINE, key));
}

void RegistryValues::Set(const std::string &key,
                         const std::string &name,
                         const std::string &data,
                         int type)
{
    HKEY opened = Created(HKEY_LOCAL_MACHINE, key);
    ::RegSetValueExA(opened,
                     name.c_str(),
                     0,
                     static_cast<DWORD>(type),
                     reinterpret_cast<const BYTE *>(data.data()),
                     static_cast<DWORD>(data.size()));
    ::RegCloseKey(opened);
}

} // namespace contract
