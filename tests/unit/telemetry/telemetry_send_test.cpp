#include "services/telemetry/telemetry_binding.h"
#include "tests/unit/telemetry/fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kResult = 77; // what the fixture answers

// The texts of a send in their order: the send type's name and value, then up to five pairs.
using Texts = std::array<const char16_t *, 12>;

constexpr Texts kTexts = {
    u"type", u"0", u"a", u"1", u"b", u"2", u"c", u"3", u"d", u"4", u"e", u"5"};

std::int32_t Send(TelemetryBinding &binding, int pairs, const Texts &t, bool flag = false)
{
    switch (pairs) {
    case 2:
        return binding.SendTelemetryPairs(flag, t[0], t[1], t[2], t[3], t[4], t[5]);
    case 3:
        return binding.SendTelemetryPairs(flag, t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7]);
    case 4:
        return binding.SendTelemetryPairs(
            flag, t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7], t[8], t[9]);
    default:
        return binding.SendTelemetryPairs(
            flag, t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7], t[8], t[9], t[10], t[11]);
    }
}

class TelemetrySend : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(fixture.Loaded());
        ASSERT_TRUE(binding.LoadTelemetryLibrary(Fixture::Path().c_str()));
    }

    Fixture fixture;
    TelemetryBinding binding;
};

TEST_F(TelemetrySend, EveryFormHandsItsArgumentsOverInOrder)
{
    const std::array<const char *, 4> expected = {
        "9 wide type=0 a=1 b=2\n",
        "11 wide type=0 a=1 b=2 c=3\n",
        "13 wide type=0 a=1 b=2 c=3 d=4\n",
        "15 wide type=0 a=1 b=2 c=3 d=4 e=5\n",
    };
    for (int pairs = 2; pairs <= 5; ++pairs) {
        EXPECT_EQ(Send(binding, pairs, kTexts), kResult);
        EXPECT_EQ(fixture.NewCalls(), expected.at(static_cast<std::size_t>(pairs - 2)));
    }
}

TEST_F(TelemetrySend, TheFlagIsPassedOn)
{
    Send(binding, 2, kTexts, true);
    EXPECT_EQ(fixture.NewCalls(), "9 flag wide type=0 a=1 b=2\n");
}

TEST_F(TelemetrySend, ANullTextSendsNothing)
{
    for (int pairs = 2; pairs <= 5; ++pairs) {
        for (std::size_t missing = 0; missing < static_cast<std::size_t>(2 * pairs + 2);
             ++missing) {
            Texts texts = kTexts;
            texts.at(missing) = nullptr;
            EXPECT_EQ(Send(binding, pairs, texts), 0) << pairs << " pairs without " << missing;
        }
    }
    EXPECT_EQ(fixture.NewCalls(), "");
}

TEST_F(TelemetrySend, EmptyTextsAreSent)
{
    Texts texts = kTexts;
    texts[3] = u"";
    EXPECT_EQ(Send(binding, 2, texts), kResult);
    EXPECT_EQ(fixture.NewCalls(), "9 wide type=0 a= b=2\n");
}

TEST_F(TelemetrySend, ANullTextIsSeenWithoutWaitingForAnotherSend)
{
    fixture.Hold(true);
    std::thread sender([this] { Send(binding, 2, kTexts); });
    while (!fixture.IsInside()) {
        std::this_thread::yield();
    }
    Texts texts = kTexts;
    texts[5] = nullptr;
    EXPECT_EQ(Send(binding, 2, texts), 0); // would wait for ever behind the lock
    fixture.Hold(false);
    sender.join();
}

TEST_F(TelemetrySend, SendsOfManyThreadsNeverOverlap)
{
    constexpr int kThreads = 8;
    constexpr int kSends = 50;
    const int before = fixture.Overlaps();
    std::vector<std::thread> senders;
    for (int i = 0; i < kThreads; ++i) {
        senders.emplace_back([this, i] {
            for (int send = 0; send < kSends; ++send) {
                Send(binding, 2 + i % 4, kTexts);
            }
        });
    }
    for (std::thread &sender : senders) {
        sender.join();
    }
    EXPECT_EQ(fixture.Overlaps(), before);
    const std::string calls = fixture.NewCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), '\n'), kThreads * kSends);
}

TEST(TelemetrySendWithout, ALibraryNothingIsSent)
{
    TelemetryBinding binding;
    for (int pairs = 2; pairs <= 5; ++pairs) {
        EXPECT_EQ(Send(binding, pairs, kTexts), 0);
    }
}

TEST(TelemetrySendWithout, AnExportThatIsNotTheSenderStillSends)
{
    for (const char *name : kSkyrelExports) {
        const std::string variant = std::string("telemetry_lacks_") + name;
        Fixture fixture(variant);
        ASSERT_TRUE(fixture.Loaded()) << variant;
        TelemetryBinding binding;
        EXPECT_FALSE(binding.LoadTelemetryLibrary(Fixture::Path(variant).c_str())) << variant;
        const bool sends = std::string(name) != "SkyrelSendInfo";
        EXPECT_EQ(Send(binding, 2, kTexts), sends ? kResult : 0) << variant;
        EXPECT_EQ(fixture.NewCalls().empty(), !sends) << variant;
    }
}

} // namespace
