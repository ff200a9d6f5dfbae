#include "services/telemetry/telemetry_binding.h"

#include "platform/module_path.h"
#include "platform/text.h"

#include <algorithm>
#include <string>

TelemetryBinding::TelemetryBinding()
{
    const std::lock_guard<std::mutex> guard(lock_);
    LoadTelemetryFromModuleDir();
}

bool TelemetryBinding::LoadTelemetryFromModuleDir()
{
    // An inexact path may name another folder: do not load from there.
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
    const std::string path = executable.substr(0, separator + 1).append(SKYREL_LIBRARY);
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
    return std::count(entryPoints_.begin(), entryPoints_.end(), nullptr) == 0;
}
