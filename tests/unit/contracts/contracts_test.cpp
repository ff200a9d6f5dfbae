#include "services/telemetry/telemetry_binding.h"

#include <gtest/gtest.h>

namespace {

TEST(LibraryInC, TakesEventsOfEveryLength)
{
    TelemetryBinding binding;
    ASSERT_TRUE(binding.LoadTelemetryLibrary(LIBRARY_IN_C));
    const char16_t *const name = u"name";
    const char16_t *const value = u"\u4E2D\U0001F600"; // three units
    const auto send = [&](auto... more) {
        return binding.SendTelemetryPairs(false, name, value, name, value, name, value, more...);
    };
    // Wide, so many arguments, texts so long.
    EXPECT_EQ(send(), 1'09'021);
    EXPECT_EQ(send(name, value), 1'11'028);
    EXPECT_EQ(send(name, value, name, value), 1'13'035);
    EXPECT_EQ(send(name, value, name, value, name, u""), 1'15'039);
    EXPECT_EQ(binding.SendTelemetryPairs(true, u"", u"", u"", u"", u"", u""), 11'09'000);
}

} // namespace
