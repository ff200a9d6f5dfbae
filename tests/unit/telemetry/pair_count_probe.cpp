// Sends TEXTS names and values. Must not compile unless they are two to five pairs.

#include "services/telemetry/telemetry_binding.h"

#include <utility>

namespace {

template<std::size_t... kText>
void Send(TelemetryBinding &binding, std::index_sequence<kText...> /*texts*/)
{
    binding.SendTelemetryPairs(false, u"", u"", (static_cast<void>(kText), u"")...);
}

} // namespace

void SendTexts(TelemetryBinding &binding);
void SendTexts(TelemetryBinding &binding)
{
    Send(binding, std::make_index_sequence<TEXTS>());
}
