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

#define SKYREL_INDEX(name) k##name,
/// The index of each export in that list.
enum SkyrelExport : std::size_t
{
    SKYREL_EXPORTS(SKYREL_INDEX)
};
#undef SKYREL_INDEX

/// The process's binding to the telemetry library, which lies beside the executable and is loaded
/// at run time. A missing or incomplete library is a normal state: nothing is reported.
class TelemetryBinding
{
public:
    /// Loads the library from the program directory and resolves its entry points. Must not use
    /// other static objects: the process's binding is built during static initialisation. Building
    /// a second one in the same storage starts with an empty table and loads again.
    TelemetryBinding();
    ~TelemetryBinding() = default;
    TelemetryBinding(const TelemetryBinding &) = delete;
    TelemetryBinding &operator=(const TelemetryBinding &) = delete;
    TelemetryBinding(TelemetryBinding &&) = delete;
    TelemetryBinding &operator=(TelemetryBinding &&) = delete;

    /// Loads "SkyrelWrap.DLL" from the executable's directory. False if the path is not
    /// expressible in the ANSI encoding, is 260 bytes or longer with the file name, or loading
    /// fails.
    bool LoadTelemetryFromModuleDir();

    /// Path of the library of the program at `executable`; empty if `executable` has no separator
    /// or the result is 260 bytes or longer.
    static std::string LibraryPathOf(const std::string &executable);

    /// Loads the library at `path` (ANSI encoding) and resolves all entry points. True only when
    /// every one was found; what was found stays usable otherwise. False without any effect when
    /// `path` is null or a library is loaded already.
    bool LoadTelemetryLibrary(const char *path);

    /// Sends two to five pairs, each a name and its value, in their order; one send of the process
    /// at a time. Returns the library's result, or 0 without a send if a string is null or the
    /// library cannot send. Strings are NUL-terminated UTF-16. Any thread.
    template<typename... Texts>
    std::int32_t SendTelemetryPairs(bool flag,
                                    const char16_t *sendTypeName,
                                    const char16_t *sendTypeValue,
                                    Texts... pairs);

private:
    platform::LibraryHandle module_ = nullptr;
    std::array<platform::FunctionAddress, kSkyrelExports.size()> entryPoints_ = {};
    std::mutex lock_;
};

template<typename... Texts>
std::int32_t TelemetryBinding::SendTelemetryPairs(bool flag,
                                                  const char16_t *sendTypeName,
                                                  const char16_t *sendTypeValue,
                                                  Texts... pairs)
{
    static_assert(sizeof...(pairs) % 2 == 0 && sizeof...(pairs) >= 4 && sizeof...(pairs) <= 10,
                  "A usage event has two to five pairs.");
    if (sendTypeName == nullptr || sendTypeValue == nullptr || ((pairs == nullptr) || ...)) {
        return 0;
    }
    const std::lock_guard<std::mutex> guard(lock_);
    const auto send = reinterpret_cast<SkyrelSendInfoFunction>(entryPoints_[kSkyrelSendInfo]);
    if (send == nullptr) {
        return 0;
    }
    constexpr std::uint8_t kWide = 1;
    return send(flag ? 1 : 0,
                kWide,
                sendTypeName,
                sendTypeValue,
                static_cast<const char16_t *>(pairs)...,
                SKYREL_END_OF_LIST);
}
