#include "services/telemetry/process_binding.h"

#include "services/telemetry/telemetry_binding.h"

namespace {

// Across source files the order of static objects is link order here and its reverse elsewhere; the
// priority decides it everywhere: before the resource bundle, which has none.
__attribute__((init_priority(1000))) TelemetryBinding processBinding;

} // namespace

TelemetryBinding &ProcessTelemetryBinding()
{
    return processBinding;
}
