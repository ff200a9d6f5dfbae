// Any keys, and a library that reports a wrong length. Fields: key, default, and the answer: four
// bytes of the reported length, then the text.

#include "services/config/config_key.h"
#include "services/config/vantor_config_instance.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"
#include "tests/unit/platform/support/fake_library.h"

#include <algorithm>
#include <cstring>

namespace {

// The largest allocation, equal to the sanitizer's option max_allocation_size_mb.
constexpr std::int64_t kMemory = std::int64_t{32} << 20U;

std::int32_t reportedLength = 0;
std::string answer;

contract::FakeLibrary &Library()
{
    static contract::FakeLibrary library(CONFIG_FAKE);
    return library;
}

CVantorConfigInstance &Config()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static CVantorConfigInstance config;
    return config;
}

QString BeforeZero(const QString &text)
{
    return text.left(text.indexOf(QChar(0)));
}

// The name is the key up to the first "__"; the suffix is the key without each "name__".
ConfigKey Split(const QString &key)
{
    const int end = key.indexOf(QStringLiteral("__"));
    if (end < 0) {
        return {key, {}};
    }
    const QString beginning = key.left(end) + QStringLiteral("__");
    return {key.left(end), key.split(beginning).join(QString())};
}

QString Expected(const QString &fallback)
{
    if (reportedLength == VANTOR_QUERY_ERROR || reportedLength < 0 || reportedLength >= kMemory) {
        return fallback;
    }
    const std::string text = answer.substr(0, static_cast<std::size_t>(reportedLength)).c_str();
    QString value = QString::fromUtf8(text.c_str());
    if (value.endsWith(QLatin1Char('/'))) {
        value = value.left(value.size() - 1);
    }
    return text.empty() ? fallback : value;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto fields = Fields<3>(data, size);
    const QString key = Text(fields[0]);
    const QString fallback = Text(fields[1]);
    answer = fields[2];
    answer.resize(std::max<std::size_t>(answer.size(), sizeof reportedLength));
    std::memcpy(&reportedLength, answer.data(), sizeof reportedLength);
    answer.erase(0, sizeof reportedLength);
    // Long texts only take time and test nothing more.
    if (reportedLength < kMemory) {
        reportedLength %= 0x10000;
    }
    const bool switchedOn = reportedLength % 2 != 0;
    Library().Tell({{"string.*", answer},
                    {"fill.*", "bare"},
                    {"length.*", std::to_string(reportedLength)},
                    {"bool.*", switchedOn ? "1" : "0"}});
    Config();
    Library().NewNotes();

    const ConfigKey split = SplitConfigKey(key);
    const ConfigKey expected = Split(key);
    Check(split.name == expected.name && split.suffix == expected.suffix, "the key is split");
    const bool isQueried = !BeforeZero(split.name).isEmpty();
    const std::string arguments =
        ' ' + fake::Field("key", BeforeZero(split.name).toStdString()) + ' ' +
        fake::Field("suffix", BeforeZero(split.suffix).toStdString()) + ' ';

    Check(Config().GetString(key, fallback) == (isQueried ? Expected(fallback) : fallback),
          "the text is cut at its NUL and at the length, or is the default");
    std::vector<std::string> calls;
    if (isQueried) {
        const std::string call = "get_string_value" + arguments;
        calls.push_back(call +
                        "buffer=null size=4294967295 result=" + std::to_string(reportedLength));
        if (reportedLength > 0 && reportedLength < kMemory) {
            calls.push_back(call + "buffer=given size=" + std::to_string(reportedLength + 1) +
                            " result=" + std::to_string(answer.size()));
        }
    }
    Check(Library().NewNotes() == calls, "the key is queried with its suffix, unless empty");
    for (const bool before : {false, true}) {
        Check(Config().GetBoolean(key, before) == (isQueried ? switchedOn : before),
              "the value is the switch or the default");
        calls = {"get_bool_value" + arguments +
                 "before=" + std::to_string(static_cast<int>(before))};
        Check(Library().NewNotes() == (isQueried ? calls : std::vector<std::string>()),
              "the switch is queried, unless the key is empty");
    }
    Config().SetPreFix(fields[0]);
    Check(Library().NewNotes() ==
              std::vector{"set_filter_environment " + fake::Field("prefix", fields[0].c_str())},
          "the prefix of an unknown product is the tag");
    return 0;
}
