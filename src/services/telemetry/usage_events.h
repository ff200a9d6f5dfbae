#pragma once

#include <QString>

#include <string>
#include <utility>
#include <vector>

class TelemetryBinding;

/// Names and values of one usage event in their order, as UTF-16.
using UsageEventPairs = std::vector<std::pair<std::u16string, std::u16string>>;

/// The pairs of an event: "Window", "Source" if there is one, "Activity", "Attribute" if there is
/// one. An attribute that is no JSON document is wrapped into an object with the one member
/// "attribute"; a document stays as it is, to the byte.
UsageEventPairs ComposeUsageEvent(const QString &window,
                                  const QString &activity,
                                  const QString &attribute,
                                  const QString &source);

/// Sends the pairs through `binding`, if there are two to five.
void SendPairs(TelemetryBinding &binding, const UsageEventPairs &pairs);

/// Composes one usage event and sends it through the process's telemetry library, before it
/// returns. Without a library nothing happens. GUI thread.
void SendUsageEvent(const QString &window,
                    const QString &activity,
                    const QString &attribute,
                    const QString &source);
