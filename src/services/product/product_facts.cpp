#include "services/product/product_facts.h"

#include "platform/module_path.h"
#include "platform/private_profile.h"
#include "platform/registry.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

using platform::RegistryKey;

namespace {

constexpr std::size_t kTextCapacity = 260;
constexpr std::size_t kVersionCapacity = 100;

// Data that fills the buffer has no NUL, so the string also ends at the buffer's end.
std::string ReadText(const RegistryKey &key, const char *name)
{
    std::array<char, kTextCapacity> buffer = {};
    if (!key || !key.Query(name, buffer.data(), buffer.size())) {
        return {};
    }
    return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

} // namespace

std::string GetOemName()
{
    return ReadText(RegistryKey::OpenLocalMachine(R"(Software\TORVAN\KTR\Version)"), "OEM");
}

std::string GetXurlId()
{
    // The setup is a 32-bit program. Its key counts when it is there, with or without the value.
    RegistryKey key = RegistryKey::OpenLocalMachine(R"(Software\WOW6432Node\TORVAN\KTR_dd)");
    if (!key) {
        key = RegistryKey::OpenLocalMachine(R"(Software\TORVAN\KTR_dd)");
    }
    return ReadText(key, "xurlID");
}

std::string GetProductLanguage()
{
    return ReadText(RegistryKey::OpenLocalMachine(R"(Software\TORVAN\KTR)"), "Language");
}

std::wstring GetConfigVersionNo()
{
    return ConfigVersionNoOf(platform::ExecutablePathWide(platform::kPathCapacity));
}

std::wstring ConfigVersionNoOf(const std::wstring &executable)
{
    // Deliberately below the executable's own name, where a file cannot normally exist.
    const std::wstring file = executable + platform::kNativeSeparatorWide + L"config.ini";
    return platform::ReadProfileText(L"main", L"versionNo", L"18.0", kVersionCapacity, file);
}
