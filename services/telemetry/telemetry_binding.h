#pragma once

#include "platform/library.h"

#include <array>
#include <cstddef>
#include <mutex>

/// The process's binding to the telemetry library, which lies beside the executable and is loaded
/// at run time. A missing or incomplete library is a normal state: nothing is reported.
class TelemetryBinding
{
public:
    /// Loads the library from the program directory and resolves its entry points. Needs nothing
    /// that static initialisation could still owe, since the process's binding is built before
    /// `main`; building it again on the same object clears the table and loads anew.
    TelemetryBinding();
    ~TelemetryBinding() = default;
    TelemetryBinding(const TelemetryBinding &) = delete;
    TelemetryBinding &operator=(const TelemetryBinding &) = delete;
    TelemetryBinding(TelemetryBinding &&) = delete;
    TelemetryBinding &operator=(TelemetryBinding &&) = delete;

    /// Loads "SkyrelWrap.DLL" from the executable's directory. False when the path cannot be had or
    /// with the file name reaches 260 bytes, and as `LoadTelemetryLibrary` says.
    bool LoadTelemetryFromModuleDir();

    /// Loads the library at `path` (narrow encoding) and resolves all entry points. True only when
    /// every one was found; what was found stays usable otherwise. False without any effect when
    /// `path` is null or a library is loaded already.
    bool LoadTelemetryLibrary(const char *path);

    /// The library's exports in the order of the table; the one list for resolving and checking.
    static constexpr std::array<const char *, 16> kEntryPointNames = {
        "SkyrelOpenSession",
        "SkyrelCloseSession",
        "SkyrelAddParamToSessionA",
        "SkyrelAddParamToSessionW",
        "SkyrelSendInfo",
        "SkyrelEnableUserInfoCollect",
        "SkyrelInstallConfigFilePath",
        "SkyrelInstallInitUid",
        "SkyrelUninstallStart",
        "SkyrelUninstallEnd",
        "SkyrelIsEnableUserInfoCollect",
        "SkyrelEndCache",
        "SkyrelGetUserUid",
        "SkyrelStopProcess",
        "SkyrelGetKeyValue",
        "SkyrelSetKeyValue",
    };

private:
    platform::LibraryHandle module_ = nullptr;
    std::array<platform::FunctionAddress, kEntryPointNames.size()> entryPoints_ = {};
    std::mutex lock_;
};
