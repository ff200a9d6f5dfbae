// Usage events from any texts, as the telemetry library receives them. Fields: window, activity,
// attribute, source.

#include "services/telemetry/usage_events.h"
#include "services/telemetry/telemetry_binding.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"
#include "tests/unit/platform/support/fake_library.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

contract::FakeLibrary &Library()
{
    static contract::FakeLibrary library(TELEMETRY_FAKE);
    return library;
}

TelemetryBinding &Binding()
{
    static TelemetryBinding binding;
    static const bool complete = binding.LoadTelemetryLibrary(Library().Path().c_str());
    Check(complete, "the library is complete");
    return binding;
}

// Not `fromStdU16String`: it drops a byte order mark.
QString Units(const std::u16string &text)
{
    QString units;
    for (const char16_t unit : text) {
        units += QChar(unit);
    }
    return units;
}

bool IsDocument(const QString &text)
{
    return !QJsonDocument::fromJson(text.toUtf8()).isNull();
}

void CheckAttribute(const QString &given, const QString &sent)
{
    if (IsDocument(given)) {
        Check(sent == given, "a JSON document is unchanged");
        return;
    }
    const QJsonObject object = QJsonDocument::fromJson(sent.toUtf8()).object();
    Check(object.keys() == QStringList{QStringLiteral("attribute")}, "the wrapper has one member");
    // Qt's reader, not its writer, may drop a byte order mark at the beginning of a text.
    const QChar mark(QChar::ByteOrderMark);
    const QString read = object.value(QStringLiteral("attribute")).toString();
    Check((read == given || mark + read == given) && sent.count(mark) == given.count(mark),
          "the wrapper holds the text");
    Check(!sent.contains(QLatin1Char('\n')), "the wrapper is compact");
}

// The fake library's journal entry for the pairs. Texts end at their first NUL.
std::vector<std::string> Received(const UsageEventPairs &pairs)
{
    std::vector<std::string> texts = {"torvanSendType=0"};
    for (const auto &[name, value] : pairs) {
        texts.push_back(fake::FromUtf16(name.c_str()) + '=' + fake::FromUtf16(value.c_str()));
    }
    return {"SkyrelSendInfo count=" + std::to_string(5 + 2 * pairs.size()) + " flag=0 wide=1 " +
            fake::ListField("pairs", texts)};
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto fields = Fields<4>(data, size);
    const QString attribute = Text(fields[2]);
    const QString source = Text(fields[3]);
    const UsageEventPairs pairs =
        ComposeUsageEvent(Text(fields[0]), Text(fields[1]), attribute, source);

    UsageEventPairs expected = {{u"Window", Text(fields[0]).toStdU16String()}};
    if (!source.isEmpty()) {
        expected.emplace_back(u"Source", source.toStdU16String());
    }
    expected.emplace_back(u"Activity", Text(fields[1]).toStdU16String());
    if (!attribute.isEmpty()) {
        Check(!pairs.empty() && pairs.back().first == u"Attribute", "the attribute comes last");
        const QString sent = Units(pairs.back().second);
        CheckAttribute(attribute, sent);
        Check(ComposeUsageEvent({}, {}, sent, {}).back().second == pairs.back().second,
              "a wrapped attribute is not wrapped again");
        expected.push_back(pairs.back());
    }
    Check(pairs == expected, "each text has its name, in their order");

    TelemetryBinding &binding = Binding();
    Library().NewNotes();
    SendPairs(binding, pairs);
    Check(Library().NewNotes() == Received(pairs), "the library receives the same pairs");
    return 0;
}
