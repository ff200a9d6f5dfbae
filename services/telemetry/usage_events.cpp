#include "services/telemetry/usage_events.h"

#include "services/telemetry/process_binding.h"
#include "services/telemetry/telemetry_binding.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr const char16_t *kSendTypeName = u"torvanSendType";
constexpr const char16_t *kSendTypeValue = u"0";

QString AsJsonDocument(const QString &attribute)
{
    if (!QJsonDocument::fromJson(attribute.toUtf8()).isNull()) {
        return attribute;
    }
    const QJsonObject wrapper{{QStringLiteral("attribute"), attribute}};
    return QString::fromUtf8(QJsonDocument(wrapper).toJson(QJsonDocument::Compact));
}

} // namespace

UsageEventPairs ComposeUsageEvent(const QString &window,
                                  const QString &activity,
                                  const QString &attribute,
                                  const QString &source)
{
    UsageEventPairs pairs;
    pairs.emplace_back(u"Window", window.toStdU16String());
    if (!source.isEmpty()) {
        pairs.emplace_back(u"Source", source.toStdU16String());
    }
    pairs.emplace_back(u"Activity", activity.toStdU16String());
    if (!attribute.isEmpty()) {
        pairs.emplace_back(u"Attribute", AsJsonDocument(attribute).toStdU16String());
    }
    return pairs;
}

void SendPairs(TelemetryBinding &binding, const UsageEventPairs &pairs)
{
    const auto name = [&pairs](std::size_t index) {
        return pairs[index].first.c_str();
    };
    const auto value = [&pairs](std::size_t index) {
        return pairs[index].second.c_str();
    };
    // clang-format off
    switch (pairs.size()) {
    case 2:
        binding.SendTelemetryPairs(false, kSendTypeName, kSendTypeValue,
                                   name(0), value(0), name(1), value(1));
        break;
    case 3:
        binding.SendTelemetryPairs(false, kSendTypeName, kSendTypeValue,
                                   name(0), value(0), name(1), value(1), name(2), value(2));
        break;
    case 4:
        binding.SendTelemetryPairs(false, kSendTypeName, kSendTypeValue,
                                   name(0), value(0), name(1), value(1), name(2), value(2),
                                   name(3), value(3));
        break;
    case 5:
        binding.SendTelemetryPairs(false, kSendTypeName, kSendTypeValue,
                                   name(0), value(0), name(1), value(1), name(2), value(2),
                                   name(3), value(3), name(4), value(4));
        break;
    default:
        break;
    }
    // clang-format on
}

void SendUsageEvent(const QString &window,
                    const QString &activity,
                    const QString &attribute,
                    const QString &source)
{
    SendPairs(ProcessTelemetryBinding(), ComposeUsageEvent(window, activity, attribute, source));
}
