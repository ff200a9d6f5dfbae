#include "tests/unit/platform/support/registry_values.h"

#include "platform/module_path.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace contract {

namespace {

std::filesystem::path File()
{
    return std::filesystem::path(platform::ExecutablePath(4097)).parent_path() / "registry.reg";
}

void Append(const std::string &text)
{
    std::ofstream(File(), std::ios::app | std::ios::binary) << text;
}

std::string Bytes(const std::string &data)
{
    std::string bytes;
    for (const char byte : data) {
        std::array<char, 4> digits = {};
        std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned char>(byte));
        bytes += (bytes.empty() ? "" : ",") + std::string(digits.data());
    }
    return bytes;
}

std::string Section(const std::string &key)
{
    return "[HKEY_LOCAL_MACHINE\\" + key + "]\n";
}

} // namespace

RegistryValues::RegistryValues()
{
    std::filesystem::remove(File());
}

RegistryValues::~RegistryValues()
{
    std::filesystem::remove(File());
}

void RegistryValues::Create(const std::string &key)
{
    Append(Section(key));
}

void RegistryValues::Set(const std::string &key,
                         const std::string &name,
                         const std::string &data,
                         int type)
{
    Append(Section(key) + "\"" + name + "\"=hex(" + std::to_string(type) + "):" + Bytes(data) +
           "\n");
}

void RegistryValues::SetText(const std::string &key,
                             const std::string &name,
                             const std::string &text)
{
    Set(key, name, text + '\0');
}

} // namespace contract
