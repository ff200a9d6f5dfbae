#pragma once

#include "platform/library.h"
#include "services/telemetry/telemetry_contract.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

#define SKYREL_QUOTED(name) #name,
/// The library's exports in their order.
constexpr std::array<const char *, 16> kSkyrelExports = {SKYREL_EXPORTS(SKYREL_QUOTED)};
#undef SKYREL_QUOTED

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

    /// Loads "SkyrelWrap.DLL" from the executable's directory. False when the path cannot be had
    /// in the narrow encoding or with the file name reaches 260 bytes, and as
    /// `LoadTelemetryLibrary` says.
    bool LoadTelemetryFromModuleDir();

    /// Where the library of the program at `executable` lies; empty as said above.
    static std::string LibraryPathOf(const std::string &executable);

    /// Loads the library at `path` (narrow encoding) and resolves all entry points. True only when
    /// every one was found; what was found stays usable otherwise. False without any effect when
    /// `path` is null or a library is loaded already.
    bool LoadTelemetryLibrary(const char *path);

    /// Sends the pairs of name and value in their order, serialised with every other send of the
    /// process. The result is the library's; 0, with nothing sent, when a text is null or the
    /// library cannot send. Texts are UTF-16 with a zero at the end. Any thread.
    std::int32_t SendTelemetryPairs(bool flag,
                                    const char16_t *sendTypeName,
                                    const char16_t *sendTypeValue,
                                    const char16_t *name1,
                                    const char16_t *value1,
                                    const char16_t *name2,
                                    const char16_t *value2);
    std::int32_t SendTelemetryPairs(bool flag,
                                    const char16_t *sendTypeName,
                                    const char16_t *sendTypeValue,
                                    const char16_t *name1,
                                    const char16_t *value1,
                                    const char16_t *name2,
                                    const char16_t *value2,
                                    const char16_t *name3,
                                    const char16_t *value3);
    std::int32_t SendTelemetryPairs(bool flag,
                                    const char16_t *sendTypeName,
                                    const char16_t *sendTypeValue,
                                    const char16_t *name1,
                                    const char16_t *value1,
                                    const char16_t *name2,
                                    const char16_t *value2,
                                    const char16_t *name3,
                                    const char16_t *value3,
                                    const char16_t *name4,
                                    const char16_t *value4);
    std::int32_t SendTelemetryPairs(bool flag,
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
                                    const char16_t *value5);

private:
    template<typename... Texts> std::int32_t Send(bool flag, Texts... texts);

    platform::LibraryHandle module_ = nullptr;
    std::array<platform::FunctionAddress, kSkyrelExports.size()> entryPoints_ = {};
    std::mutex lock_;
};
