#include "services/telemetry/process_binding.h"

#include "services/telemetry/telemetry_binding.h"

namespace {

// Static objects of several source files are initialised in link order on Linux and in reverse with
// MinGW. The priority puts this one before the compiled-in resources, which have none.
__attribute__((init_priority(1000))) TelemetryBinding processBinding;

} // namespace

TelemetryBinding &ProcessTelemetryBinding()
{
    return processBinding;
}
