#include "services/telemetry/telemetry_binding.h"

#include "platform/module_path.h"
#include "platform/text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kLibraryName = SKYREL_LIBRARY;

constexpr std::size_t IndexOf(std::string_view name)
{
    std::size_t index = 0;
    while (kSkyrelExports.at(index) != name) {
        ++index;
    }
    return index;
}

constexpr std::size_t kSendInfo = IndexOf("SkyrelSendInfo");

} // namespace

TelemetryBinding::TelemetryBinding()
{
    const std::lock_guard<std::mutex> guard(lock_);
    LoadTelemetryFromModuleDir();
}

bool TelemetryBinding::LoadTelemetryFromModuleDir()
{
    // A library of another folder with a similar name is not the product's.
    if (!platform::IsExecutableFolderExact(platform::kPathCapacity)) {
        return false;
    }
    const std::string path = LibraryPathOf(platform::ExecutablePath(platform::kPathCapacity));
    return !path.empty() && LoadTelemetryLibrary(path.c_str());
}

std::string TelemetryBinding::LibraryPathOf(const std::string &executable)
{
    const std::size_t separator = executable.rfind(platform::kNativeSeparator);
    if (separator == std::string::npos) {
        return {};
    }
    const std::string path = executable.substr(0, separator + 1).append(kLibraryName);
    return path.size() < platform::kPathCapacity ? path : std::string();
}

bool TelemetryBinding::LoadTelemetryLibrary(const char *path)
{
    if (path == nullptr || module_ != nullptr) {
        return false;
    }
    module_ = platform::LoadLibraryFile(path);
    if (module_ == nullptr) {
        return false;
    }
    std::transform(kSkyrelExports.begin(),
                   kSkyrelExports.end(),
                   entryPoints_.begin(),
                   [this](const char *name) { return platform::FindFunction(module_, name); });
    return std::all_of(entryPoints_.begin(), entryPoints_.end(), [](auto entryPoint) {
        return entryPoint != nullptr;
    });
}

template<typename... Texts> std::int32_t TelemetryBinding::Send(bool flag, Texts... texts)
{
    if (((texts == nullptr) || ...)) {
        return 0;
    }
    const std::lock_guard<std::mutex> guard(lock_);
    const auto send = reinterpret_cast<SkyrelSendInfoFunction>(entryPoints_[kSendInfo]);
    if (send == nullptr) {
        return 0;
    }
    constexpr std::uint8_t kWide = 1;
    return send(flag ? 1 : 0, kWide, texts..., SKYREL_END_OF_LIST);
}

std::int32_t TelemetryBinding::SendTelemetryPairs(bool flag,
                                                  const char16_t *sendTypeName,
                                                  const char16_t *sendTypeValue,
                                                  const char16_t *name1,
                                                  const char16_t *value1,
                                                  const char16_t *name2,
                                                  const char16_t *value2)
{
    return Send(flag, sendTypeName, sendTypeValue, name1, value1, name2, value2);
}

std::int32_t TelemetryBinding::SendTelemetryPairs(bool flag,
                                                  const char16_t *sendTypeName,
                                                  const char16_t *sendTypeValue,
                                                  const char16_t *name1,
                                                  const char16_t *value1,
                                                  const char16_t *name2,
                                                  const char16_t *value2,
                                                  const char16_t *name3,
                                                  const char16_t *value3)
{
    return Send(flag, sendTypeName, sendTypeValue, name1, value1, name2, value2, name3, value3);
}

std::int32_t TelemetryBinding::SendTelemetryPairs(bool flag,
                                                  const char16_t *sendTypeName,
                                                  const char16_t *sendTypeValue,
                                                  const char16_t *name1,
                                                  const char16_t *value1,
                                                  const char16_t *name2,
                                                  const char16_t *value2,
                                                  const char16_t *name3,
                                                  const char16_t *value3,
                                                  const char16_t *name4,
                                                  const char16_t *value4)
{
    return Send(flag,
                sendTypeName,
                sendTypeValue,
                name1,
                value1,
                name2,
                value2,
                name3,
                value3,
                name4,
                value4);
}

std::int32_t TelemetryBinding::SendTelemetryPairs(bool flag,
                                                  const char16_t *sendTypeName,
                                                  const char16_t *sendTypeValue,
                                                  const char16_t *name1,
                                                  const char16_t *value1,
                                                  const char16_t *name2,
                                                  const char16_t *value2,
                                                  const char16_t *name3,
                                                  const char16_t *value3,
                                                  const char16_t *name4,
                                                  const char16_t *value4,
                                                  const char16_t *name5,
                                                  const char16_t *value5)
{
    return Send(flag,
                sendTypeName,
                sendTypeValue,
                name1,
                value1,
                name2,
                value2,
                name3,
                value3,
                name4,
                value4,
                name5,
                value5);
}
