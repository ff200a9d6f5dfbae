#pragma once

#include <filesystem>

namespace telemetry {

/// Called once when the library has been loaded; `self` is its own full path. Runs under the
/// loader's lock, so it starts the companion and does little else.
void OnLoad(const std::filesystem::path &self);

} // namespace telemetry
