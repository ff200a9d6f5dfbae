#include "tests/unit/platform/support/registry_values.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace contract {

namespace {

std::filesystem::path File()
{
    return ExecutablePath().parent_path() / "registry.reg";
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
    : removal_(AtEnd([] { std::filesystem::remove(File()); }))
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

} // namespace contract
