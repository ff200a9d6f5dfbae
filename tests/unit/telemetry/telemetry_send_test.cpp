#include "tests/unit/platform/support/system.h"
#include "tests/unit/telemetry/fixture.h"

#include <algorithm>
#include <array>
#include <thread>

namespace {

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

using TelemetrySend = TelemetryTest;

TEST_F(TelemetrySend, EveryFormHandsItsArgumentsOverInOrderButNoNullText)
{
    std::string expected = "[type=0][a=1]";
    for (int pairs = 2; pairs <= 5; ++pairs) {
        EXPECT_EQ(Send(binding_, pairs, kTexts), kResult);
        expected += std::string("[") + static_cast<char>('a' + pairs - 1) + '=' +
                    std::to_string(pairs) + ']';
        EXPECT_EQ(library_.NewNotes(),
                  Notes{"SkyrelSendInfo count=" + std::to_string(5 + 2 * pairs) +
                        " flag=0 wide=1 pairs=" + expected});
        for (std::size_t missing = 0; missing < static_cast<std::size_t>(2 * pairs + 2);
             ++missing) {
            Texts texts = kTexts;
            texts.at(missing) = nullptr;
            EXPECT_EQ(Send(binding_, pairs, texts), 0) << pairs << " pairs without " << missing;
        }
        EXPECT_EQ(library_.NewNotes(), Notes{});
    }
}

// The end marker is 8-bit text, so the same text in UTF-16 does not end the list. An unpaired
// surrogate has no UTF-8 and is noted as escaped bytes.
TEST_F(TelemetrySend, TheFlagAndTextsOfAnyContentArrive)
{
    Texts texts = kTexts;
    texts[3] = u"";
    texts[4] = u"SKYREL_{5E0A7C21-3B94-4D6F-8A12-C7E94B3D2F60}";
    texts[5] = u"\u4E2D\U0001F600\xD800";
    EXPECT_EQ(Send(binding_, 2, texts, true), kResult);
    EXPECT_EQ(library_.NewNotes(),
              Notes{"SkyrelSendInfo count=9 flag=1 wide=1 pairs=[type=0][a=]"
                    "[SKYREL_{5E0A7C21-3B94-4D6F-8A12-C7E94B3D2F60}="
                    "\xE4\xB8\xAD\xF0\x9F\x98\x80%ED%A0%80]"});
}

TEST_F(TelemetrySend, OtherExportsAreNotedAsUnexpected)
{
    EXPECT_EQ(library_.Function<int()>("SkyrelEndCache")(), 0);
    EXPECT_EQ(library_.NewNotes(), Notes{"unexpected name=SkyrelEndCache"});
}

TEST_F(TelemetrySend, ANullTextIsRefusedWithoutWaitingForAnotherSend)
{
    const contract::ScratchFolder folder;
    contract::WriteFile(folder / "hold", "");
    library_.Tell({{"hold_file", (folder / "hold").u8string()}});
    std::thread sender([this] { Send(binding_, 2, kTexts); });
    EXPECT_TRUE(contract::WaitUntil([this] { return library_.NewNotes() == Notes{"hold"}; }));
    Texts texts = kTexts;
    texts[5] = nullptr;
    EXPECT_EQ(Send(binding_, 2, texts), 0); // would wait for ever behind the lock
    std::filesystem::remove(folder / "hold");
    sender.join();
}

TEST_F(TelemetrySend, SendsOfManyThreadsNeverOverlap)
{
    constexpr std::size_t kThreads = 8;
    constexpr std::size_t kSends = 50;
    library_.Tell({{"delay_ms", "1"}});
    std::vector<std::thread> senders;
    for (std::size_t i = 0; i < kThreads; ++i) {
        senders.emplace_back([this, i] {
            for (std::size_t send = 0; send < kSends; ++send) {
                Send(binding_, 2 + static_cast<int>(i % 4), kTexts);
            }
        });
    }
    for (std::thread &sender : senders) {
        sender.join();
    }
    const Notes notes = library_.NewNotes();
    EXPECT_EQ(std::count(notes.begin(), notes.end(), "overlap"), 0);
    EXPECT_EQ(notes.size(), kThreads * kSends);
}

} // namespace
