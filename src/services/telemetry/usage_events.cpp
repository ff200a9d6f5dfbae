#include "services/telemetry/usage_events.h"

#include "services/telemetry/process_binding.h"
#include "services/telemetry/telemetry_binding.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString AsJsonDocument(const QString &attribute)
{
    if (!QJsonDocument::fromJson(attribute.toUtf8()).isNull()) {
        return attribute;
    }
    const QJsonObject wrapper{{QStringLiteral("attribute"), attribute}};
    return QString::fromUtf8(QJsonDocument(wrapper).toJson(QJsonDocument::Compact));
}

// The variadic call needs the argument count at compile time; does nothing for any other count.
template<std::size_t... kText>
void SendTexts(TelemetryBinding &binding,
               const UsageEventPairs &pairs,
               std::index_sequence<kText...> /*texts*/)
{
    if (sizeof...(kText) != 2 * pairs.size()) {
        return;
    }
    const auto text = [&pairs](std::size_t index) {
        const auto &[name, value] = pairs[index / 2];
        return (index % 2 == 0 ? name : value).c_str();
    };
    binding.SendTelemetryPairs(false, u"torvanSendType", u"0", text(kText)...);
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
    SendTexts(binding, pairs, std::make_index_sequence<4>());
    SendTexts(binding, pairs, std::make_index_sequence<6>());
    SendTexts(binding, pairs, std::make_index_sequence<8>());
    SendTexts(binding, pairs, std::make_index_sequence<10>());
}

void SendUsageEvent(const QString &window,
                    const QString &activity,
                    const QString &attribute,
                    const QString &source)
{
    SendPairs(ProcessTelemetryBinding(), ComposeUsageEvent(window, activity, attribute, source));
}
