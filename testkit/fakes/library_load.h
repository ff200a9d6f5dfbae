#pragma once

#include <filesystem>

namespace fake {

/// Called once when a library of the sandbox has been loaded; `self` is its own full
/// path. Runs under the loader's lock, so it does little.
void OnLoad(const std::filesystem::path &self);

} // namespace fake
