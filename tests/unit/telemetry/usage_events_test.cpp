#include "services/telemetry/usage_events.h"
#include "tests/unit/telemetry/fixture.h"

namespace {

/// Name and value of each pair.
std::string Shown(const UsageEventPairs &pairs)
{
    std::string shown;
    for (const auto &[name, value] : pairs) {
        shown += QString::fromStdU16String(name).toStdString() + "=[" +
                 QString::fromStdU16String(value).toStdString() + "]";
    }
    return shown;
}

TEST(UsageEvent, HasTwoToFourPairsInTheirOrder)
{
    EXPECT_EQ(Shown(ComposeUsageEvent("A", "B", "", "")), "Window=[A]Activity=[B]");
    EXPECT_EQ(Shown(ComposeUsageEvent("A", "B", "", "D")), "Window=[A]Source=[D]Activity=[B]");
    EXPECT_EQ(Shown(ComposeUsageEvent("A", "B", "{}", "")), "Window=[A]Activity=[B]Attribute=[{}]");
    EXPECT_EQ(Shown(ComposeUsageEvent("A", "B", "[]", "D")),
              "Window=[A]Source=[D]Activity=[B]Attribute=[[]]");
    EXPECT_EQ(Shown(ComposeUsageEvent("", "", "", "")), "Window=[]Activity=[]");
    EXPECT_EQ(Shown(ComposeUsageEvent({}, {}, {}, {})), "Window=[]Activity=[]");
}

std::string AttributeOf(const QString &given)
{
    const UsageEventPairs pairs = ComposeUsageEvent("w", "a", given, "");
    return QString::fromStdU16String(pairs.back().second).toStdString();
}

TEST(UsageEvent, AJsonDocumentStaysAsItIsToTheByte)
{
    for (const char *document : {R"({"url":"https://a.example/?x=1&y=2"})",
                                 "{}",
                                 "[]",
                                 " { \"a\" : 1 }\n",
                                 R"({"a":1,"a":2})",
                                 R"(["\u00e9", null, true])",
                                 "{\"a\":\"\xC3\xA9\"}"}) {
        EXPECT_EQ(AttributeOf(document), document);
    }
}

struct Attribute
{
    std::string given;
    std::string escaped;
};

TEST(UsageEvent, AnythingElseIsWrapped)
{
    const std::string deep = std::string(3000, '[') + std::string(3000, ']');
    for (const Attribute &attribute : {Attribute{"hello", "hello"},
                                       {R"(say "hello")", R"(say \"hello\")"},
                                       {"1", "1"},
                                       {"true", "true"},
                                       {"null", "null"},
                                       {R"("text")", R"(\"text\")"},
                                       {"{}x", "{}x"},
                                       {"{'a':1}", "{'a':1}"},
                                       {R"({"a":1,})", R"({\"a\":1,})"},
                                       {" ", " "},
                                       {"a\nb\tc\\", R"(a\nb\tc\\)"},
                                       {"\xC3\xA9\xF0\x9F\x98\x80", "\xC3\xA9\xF0\x9F\x98\x80"},
                                       {deep, deep}}) { // deeper than a document may be
        EXPECT_EQ(AttributeOf(QString::fromStdString(attribute.given)),
                  R"({"attribute":")" + attribute.escaped + R"("})");
    }
}

// UTF-8 cannot encode an unpaired surrogate, but JSON can escape it.
TEST(UsageEvent, ALoneSurrogateIsWrapped)
{
    EXPECT_EQ(AttributeOf(QString("before") + QChar(0xD83D) + "after"),
              R"({"attribute":"before\ud83dafter"})");
}

using UsageEventSend = TelemetryTest;

TEST_F(UsageEventSend, OnlyTwoToFivePairsAreSent)
{
    UsageEventPairs pairs;
    std::string shown = "[torvanSendType=0]";
    for (int count = 0; count <= 6; ++count) {
        SendPairs(binding_, pairs);
        Notes expected;
        if (count >= 2 && count <= 5) {
            expected = {"SkyrelSendInfo count=" + std::to_string(5 + 2 * count) +
                        " flag=0 wide=1 pairs=" + shown};
        }
        EXPECT_EQ(library_.NewNotes(), expected);
        const QString digit = QString::number(count);
        pairs.emplace_back((QString("n") + digit).toStdU16String(),
                           (QString("v") + digit).toStdU16String());
        shown += "[n" + digit.toStdString() + "=v" + digit.toStdString() + "]";
    }
}

// No library lies beside this program.
TEST_F(UsageEventSend, WithoutALibraryNothingHappens)
{
    SendUsageEvent("W", "A", "{}", "S");
    TelemetryBinding unbound;
    SendPairs(unbound, ComposeUsageEvent("W", "A", "{}", "S"));
    EXPECT_EQ(library_.NewNotes(), Notes{});
}

} // namespace
