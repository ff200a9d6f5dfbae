// Keys of any form, and a library that lies about the length of its texts. Fields: key, default,
// the four bytes of the length that it names and then what it fills in.

#include "services/config/config_key.h"
#include "services/config/vantor_config_instance.h"
#include "tests/fuzz/config_library.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::uint32_t kSizingCall = 0xFFFFFFFF;
// The most that there is memory for, as the option max_allocation_size_mb says.
constexpr std::int64_t kMemory = std::int64_t{32} << 20U;

std::string askedKey;
std::string askedSuffix;
std::int32_t claimedLength = 0;
std::string filledIn;
bool switchedOn = false;
std::string environment;

std::int32_t GetStringValue(VantorConfig * /*config*/,
                            const char *key,
                            char *buffer,
                            std::uint32_t size,
                            const char *suffix)
{
    askedKey = key;
    askedSuffix = suffix;
    if (buffer == nullptr) {
        Check(size == kSizingCall, "without a buffer it asks for the length");
        return claimedLength;
    }
    Check(size == static_cast<std::uint32_t>(claimedLength) + 1, "room for the text and its zero");
    // Never more than there is room for, that much is agreed; but there may be no zero.
    std::memcpy(buffer, filledIn.data(), std::min<std::size_t>(filledIn.size(), size));
    return 0;
}

bool GetBoolValue(VantorConfig * /*config*/, const char *key, bool *value, const char *suffix)
{
    askedKey = key;
    askedSuffix = suffix;
    *value = switchedOn;
    return false;
}

void Unexpected()
{
    Check(false, "only four entries of the table are called");
}

const VantorConfigTable kTable = {
    Unexpected,
    [](VantorConfig * /*config*/, int mode) { return mode != 0; },
    Unexpected,
    [](VantorConfig * /*config*/, const char *prefix) { environment = prefix; },
    Unexpected,
    Unexpected,
    GetBoolValue,
    Unexpected,
    Unexpected,
    GetStringValue};
VantorConfig object = {&kTable};

CVantorConfigInstance &Config()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    ObjectToCreate() = &object;
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
    switchedOn = claimedLength % 2 != 0;

    const ConfigKey split = SplitConfigKey(key);
    const ConfigKey expected = Split(key);
    Check(split.name == expected.name && split.suffix == expected.suffix, "the key is split");
    const bool isAsked = !BeforeZero(split.name).isEmpty();
    const auto forgetAndCheckAfter = [&](auto look) {
        askedKey.clear();
        askedSuffix.clear();
        look();
        Check(askedKey == BeforeZero(split.name).toStdString(),
              "the key is asked for, unless empty");
        Check(askedSuffix == (isAsked ? BeforeZero(split.suffix).toStdString() : std::string()),
              "with its suffix");
    };
    forgetAndCheckAfter([&] {
        Check(Config().GetString(key, fallback) == (isAsked ? Expected(fallback) : fallback),
              "what was filled in up to its zero and the length, or the default");
    });
    for (const bool before : {false, true}) {
        forgetAndCheckAfter([&] {
            Check(Config().GetBoolean(key, before) == (isAsked ? switchedOn : before),
                  "the switch, or the default");
        });
    }
    Config().SetPreFix(fields[0]);
    Check(environment == fields[0].c_str(), "an unknown product's prefix is the tag");
    return 0;
}
