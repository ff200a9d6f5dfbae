#pragma once

#include <string>
#include <utility>
#include <vector>

/// The pairs that came with the last call of the library that `usage_events` sends to.
std::vector<std::pair<std::u16string, std::u16string>> &ReceivedPairs();
