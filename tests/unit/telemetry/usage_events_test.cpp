#include "services/telemetry/usage_events.h"
#include "tests/unit/telemetry/fixture.h"

namespace {

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

std::string Shown(const UsageEventPairs &pairs)
{
    std::string shown;
    for (const auto &[name, value] : pairs) {
        shown += QString::fromStdU16String(name).toStdString() + "=[" +
                 QString::fromStdU16String(value).toStdString() + "]";
    }
    return shown;
}

std::string Composed(const char *window,
                     const char *activity,
                     const char *attribute = "",
                     const char *source = "")
{
    return Shown(ComposeUsageEvent(Text(window), Text(activity), Text(attribute), Text(source)));
}

TEST(UsageEvent, HasTwoToFourPairsInTheirOrder)
{
    EXPECT_EQ(Composed("A", "B"), "Window=[A]Activity=[B]");
    EXPECT_EQ(Composed("A", "B", "", "D"), "Window=[A]Source=[D]Activity=[B]");
    EXPECT_EQ(Composed("A", "B", "{}"), "Window=[A]Activity=[B]Attribute=[{}]");
    EXPECT_EQ(Composed("A", "B", "[]", "D"), "Window=[A]Source=[D]Activity=[B]Attribute=[[]]");
}

TEST(UsageEvent, EmptyWindowAndActivityAreStillThere)
{
    EXPECT_EQ(Composed("", ""), "Window=[]Activity=[]");
    EXPECT_EQ(Shown(ComposeUsageEvent(QString(), QString(), QString(), QString())),
              "Window=[]Activity=[]");
}

struct Attribute
{
    const char *given;
    const char *sent;
};

std::string AttributeOf(const char *given)
{
    const UsageEventPairs pairs = ComposeUsageEvent(Text("w"), Text("a"), Text(given), QString());
    return QString::fromStdU16String(pairs.back().second).toStdString();
}

TEST(UsageEvent, AJsonDocumentStaysAsItIsToTheByte)
{
    for (const char *document : {
             R"({"url":"https://a.example/?x=1&y=2"})",
             "{}",
             "[]",
             " { \"a\" : 1 }\n",
             R"({"a":1,"a":2})",
             R"(["\u00e9", null, true])",
             "{\"a\":\"\xC3\xA9\"}",
         }) {
        EXPECT_EQ(AttributeOf(document), document);
    }
}

TEST(UsageEvent, AnythingElseIsWrapped)
{
    for (const Attribute &attribute : {
             Attribute{"hello", R"({"attribute":"hello"})"},
             Attribute{R"(say "hello")", R"({"attribute":"say \"hello\""})"},
             Attribute{"1", R"({"attribute":"1"})"},
             Attribute{"true", R"({"attribute":"true"})"},
             Attribute{"null", R"({"attribute":"null"})"},
             Attribute{R"("text")", R"({"attribute":"\"text\""})"},
             Attribute{"{}x", R"({"attribute":"{}x"})"},
             Attribute{"{'a':1}", R"({"attribute":"{'a':1}"})"},
             Attribute{R"({"a":1,})", R"({"attribute":"{\"a\":1,}"})"},
             Attribute{" ", R"({"attribute":" "})"},
             Attribute{"a\nb\tc\\", R"({"attribute":"a\nb\tc\\"})"},
             Attribute{"\xC3\xA9\xF0\x9F\x98\x80", "{\"attribute\":\"\xC3\xA9\xF0\x9F\x98\x80\"}"},
         }) {
        EXPECT_EQ(AttributeOf(attribute.given), attribute.sent) << attribute.given;
    }
}

TEST(UsageEvent, DeepNestingIsNoDocumentAndIsWrapped)
{
    const std::string deep = std::string(3000, '[') + std::string(3000, ']');
    EXPECT_EQ(AttributeOf(deep.c_str()), "{\"attribute\":\"" + deep + "\"}");
}

// A half of a pair has no UTF-8: JSON has a form for it.
TEST(UsageEvent, ALoneSurrogateArrives)
{
    const QString text = QString("before") + QChar(0xD83D) + "after";
    const UsageEventPairs pairs = ComposeUsageEvent(Text("w"), Text("a"), text, QString());
    EXPECT_EQ(QString::fromStdU16String(pairs.back().second),
              R"({"attribute":"before\ud83dafter"})");
}

using UsageEventSend = TelemetryTest;

TEST_F(UsageEventSend, OnlyTwoToFivePairsAreSent)
{
    UsageEventPairs pairs;
    std::string shown = "[torvanSendType=0]";
    for (int count = 0; count <= 6; ++count) {
        SendPairs(binding, pairs);
        Notes expected;
        if (count >= 2 && count <= 5) {
            expected = {"SkyrelSendInfo count=" + std::to_string(5 + 2 * count) +
                        " flag=0 wide=1 pairs=" + shown};
        }
        EXPECT_EQ(library.NewNotes(), expected);
        const QString digit = QString::number(count);
        pairs.emplace_back((QString("n") + digit).toStdU16String(),
                           (QString("v") + digit).toStdU16String());
        shown += "[n" + digit.toStdString() + "=v" + digit.toStdString() + "]";
    }
}

// No library lies beside this program.
TEST_F(UsageEventSend, WithoutALibraryNothingHappens)
{
    SendUsageEvent(Text("W"), Text("A"), Text("{}"), Text("S"));
    TelemetryBinding unbound;
    SendPairs(unbound, ComposeUsageEvent(Text("W"), Text("A"), Text("{}"), Text("S")));
    EXPECT_EQ(library.NewNotes(), Notes{});
}

} // namespace
