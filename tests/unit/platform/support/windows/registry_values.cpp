#include "tests/unit/platform/support/registry_values.h"

#include <windows.h>

#include <array>

namespace contract {

namespace {

constexpr std::array<const char *, 2> kOurs = {"Software\\TORVAN", "Software\\WOW6432Node\\TORVAN"};

void RemoveOurs()
{
    for (const char *key : kOurs) {
        ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, key);
    }
}

} // namespace

RegistryValues::RegistryValues()
{
    RemoveOurs();
}

RegistryValues::~RegistryValues()
{
    RemoveOurs();
}

void RegistryValues::Create(const std::string &key)
{
    HKEY opened = nullptr;
    ::RegCreateKeyExA(
        HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr);
    ::RegCloseKey(opened);
}

void RegistryValues::Set(const std::string &key,
                         const std::string &name,
                         const std::string &data,
                         int type)
{
    Create(key);
    HKEY opened = nullptr;
    ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_WRITE, &opened);
    ::RegSetValueExA(opened,
                     name.c_str(),
                     0,
                     static_cast<DWORD>(type),
                     reinterpret_cast<const BYTE *>(data.data()),
                     static_cast<DWORD>(data.size()));
    ::RegCloseKey(opened);
}

void RegistryValues::SetText(const std::string &key,
                             const std::string &name,
                             const std::string &text)
{
    Set(key, name, text + '\0');
}

} // namespace contract
