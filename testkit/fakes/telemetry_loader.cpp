// Loads a telemetry library as the program does, for the tests of the fake:
//   telemetry_loader LIBRARY [send|call] [NAME VALUE]...
// `send` sends an event of two to five pairs, `call` calls an export that nobody should call.
// Prints `loaded N` with the number of exports found and `result N`, then stays until its standard
// input ends. Status 1 when the library does not load.

#include "platform/library.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr std::array<const char *, 16> kNames = {"SkyrelOpenSession",
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
                                                 "SkyrelSetKeyValue"};

constexpr const char *kEndMarker = "SKYREL_{5E0A7C21-3B94-4D6F-8A12-C7E94B3D2F60}";

using SendInfo = std::int32_t (*)(bool, bool, const char16_t *, const char16_t *, ...);
using Plain = std::int32_t (*)();

// The arguments are plain letters here, one 16-bit unit each; `~` stands for half a surrogate pair
// and `^` for a character of two units.
std::u16string Wide(const char *text)
{
    std::u16string wide;
    for (; *text != '\0'; ++text) {
        if (*text == '^') {
            wide += u"\U0001F600";
        } else {
            wide += *text == '~' ? u'\xD800' : static_cast<char16_t>(*text);
        }
    }
    return wide;
}

std::int32_t Send(SendInfo send, const std::vector<std::u16string> &texts, const char *marker)
{
    const auto t = [&texts](std::size_t index) {
        return texts[index].c_str();
    };
    const auto *name = u"torvanSendType";
    const auto *value = u"0";
    switch (texts.size()) {
    case 4:
        return send(false, true, name, value, t(0), t(1), t(2), t(3), marker);
    case 6:
        return send(false, true, name, value, t(0), t(1), t(2), t(3), t(4), t(5), marker);
    case 8:
        return send(
            false, true, name, value, t(0), t(1), t(2), t(3), t(4), t(5), t(6), t(7), marker);
    case 10:
        return send(false,
                    true,
                    name,
                    value,
                    t(0),
                    t(1),
                    t(2),
                    t(3),
                    t(4),
                    t(5),
                    t(6),
                    t(7),
                    t(8),
                    t(9),
                    marker);
    default:
        return -1;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    platform::LibraryHandle library =
        arguments.empty() ? nullptr : platform::LoadLibraryFile(arguments[0].c_str());
    if (library == nullptr) {
        return 1;
    }
    int found = 0;
    for (const char *name : kNames) {
        found += platform::FindFunction(library, name) != nullptr ? 1 : 0;
    }
    std::printf("loaded %d\n", found);
    const std::string action = arguments.size() > 1 ? arguments[1] : "";
    std::vector<std::u16string> texts;
    for (std::size_t index = 2; index < arguments.size(); ++index) {
        texts.push_back(Wide(arguments[index].c_str()));
    }
    if (action == "send") {
        const auto send =
            reinterpret_cast<SendInfo>(platform::FindFunction(library, "SkyrelSendInfo"));
        std::printf("result %d\n", Send(send, texts, kEndMarker));
    } else if (action == "call") {
        const auto call =
            reinterpret_cast<Plain>(platform::FindFunction(library, "SkyrelEndCache"));
        std::printf("result %d\n", call());
    }
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
