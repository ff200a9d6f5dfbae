// Keys of any form, and a library that lies about the length of its texts. Fields: key, default,
// the four bytes of the length that it names and then what it fills in.

#include "services/config/config_key.h"
#include "services/config/vantor_config_instance.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"
#include "tests/unit/platform/support/fake_library.h"

#include <algorithm>
#include <cstring>

namespace {

// The most that there is memory for, as the option max_allocation_size_mb says.
constexpr std::int64_t kMemory = std::int64_t{32} << 20U;

std::int32_t claimedLength = 0;
std::string filledIn;

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

// The key up to the first "__", and without every "name__" from left to right.
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
    if (claimedLength == VANTOR_QUERY_ERROR || claimedLength < 0 || claimedLength >= kMemory) {
        return fallback;
    }
    const std::string text = filledIn.substr(0, static_cast<std::size_t>(claimedLength)).c_str();
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
    filledIn = fields[2];
    filledIn.resize(std::max<std::size_t>(filledIn.size(), sizeof claimedLength));
    std::memcpy(&claimedLength, filledIn.data(), sizeof claimedLength);
    filledIn.erase(0, sizeof claimedLength);
    // A length that is only long takes time and shows nothing.
    if (claimedLength < kMemory) {
        claimedLength %= 0x10000;
    }
    const bool switchedOn = claimedLength % 2 != 0;
    Library().Tell({{"string.*", filledIn},
                    {"fill.*", "bare"},
                    {"length.*", std::to_string(claimedLength)},
                    {"bool.*", switchedOn ? "1" : "0"}});
    Config();
    Library().NewNotes();

    const ConfigKey split = SplitConfigKey(key);
    const ConfigKey expected = Split(key);
    Check(split.name == expected.name && split.suffix == expected.suffix, "the key is split");
    const bool isAsked = !BeforeZero(split.name).isEmpty();
    const std::string asked = ' ' + fake::Field("key", BeforeZero(split.name).toStdString()) + ' ' +
                              fake::Field("suffix", BeforeZero(split.suffix).toStdString()) + ' ';

    Check(Config().GetString(key, fallback) == (isAsked ? Expected(fallback) : fallback),
          "what was filled in up to its zero and the length, or the default");
    std::vector<std::string> calls;
    if (isAsked) {
        const std::string call = "get_string_value" + asked;
        calls.push_back(call +
                        "buffer=null size=4294967295 result=" + std::to_string(claimedLength));
        if (claimedLength > 0 && claimedLength < kMemory) {
            calls.push_back(call + "buffer=given size=" + std::to_string(claimedLength + 1) +
                            " result=" + std::to_string(filledIn.size()));
        }
    }
    Check(Library().NewNotes() == calls, "the key is asked for with its suffix, unless empty");
    for (const bool before : {false, true}) {
        Check(Config().GetBoolean(key, before) == (isAsked ? switchedOn : before),
              "the switch, or the default");
        calls = {"get_bool_value" + asked + "before=" + std::to_string(static_cast<int>(before))};
        Check(Library().NewNotes() == (isAsked ? calls : std::vector<std::string>()),
              "the switch is asked for, unless the key is empty");
    }
    Config().SetPreFix(fields[0]);
    Check(Library().NewNotes() ==
              std::vector{"set_filter_environment " + fake::Field("prefix", fields[0].c_str())},
          "an unknown product's prefix is the tag");
    return 0;
}
