#include "services/telemetry/telemetry_binding.h"

#include "platform/module_path.h"
#include "platform/text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kPathCapacity = 260;
constexpr std::string_view kLibraryName = "SkyrelWrap.DLL";

} // namespace

TelemetryBinding::TelemetryBinding()
{
    const std::lock_guard<std::mutex> guard(lock_);
    LoadTelemetryFromModuleDir();
}

bool TelemetryBinding::LoadTelemetryFromModuleDir()
{
    std::string path = platform::ExecutablePath(kPathCapacity);
    const std::size_t separator = path.rfind(platform::kNativeSeparator);
    if (separator == std::string::npos) {
        return false;
    }
    path.erase(separator + 1);
    if (path.size() + kLibraryName.size() >= kPathCapacity) {
        return false;
    }
    path += kLibraryName;
    return LoadTelemetryLibrary(path.c_str());
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
    std::transform(kEntryPointNames.begin(),
                   kEntryPointNames.end(),
                   entryPoints_.begin(),
                   [this](const char *name) { return platform::FindFunction(module_, name); });
    return std::all_of(entryPoints_.begin(), entryPoints_.end(), [](auto entryPoint) {
        return entryPoint != nullptr;
    });
}
