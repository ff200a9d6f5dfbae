// A telemetry library that remembers what it was called with.

#include "tests/fuzz/telemetry_library.h"

#include "services/telemetry/telemetry_contract.h"
#include "tests/fuzz/fuzz.h"

#include <cstdarg>
#include <cstring>

std::vector<std::pair<std::u16string, std::u16string>> &ReceivedPairs()
{
    static std::vector<std::pair<std::u16string, std::u16string>> pairs;
    return pairs;
}

extern "C" std::int32_t SkyrelSendInfo(
    std::uint8_t flag, std::uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...);
extern "C" std::int32_t SkyrelSendInfo(
    std::uint8_t flag, std::uint8_t wide, const SkyrelChar *name, const SkyrelChar *value, ...)
{
    Check(flag == 0 && wide == 1, "no flag, wide texts");
    Check(std::u16string(name) == u"torvanSendType" && std::u16string(value) == u"0",
          "the kind of sending comes first");
    std::va_list list;
    va_start(list, value);
    // Where a name could stand, the marker does: the one text that is not wide.
    const void *item = va_arg(list, const void *);
    while (std::strcmp(static_cast<const char *>(item), SKYREL_END_OF_LIST) != 0) {
        const auto *const text = va_arg(list, const SkyrelChar *);
        ReceivedPairs().emplace_back(static_cast<const SkyrelChar *>(item), text);
        item = va_arg(list, const void *);
    }
    va_end(list);
    return 0;
}
