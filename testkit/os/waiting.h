#pragma once

#include <chrono>
#include <functional>

namespace os {

/// Far longer than anything takes on a busy machine; only a failing test waits for it.
inline constexpr std::chrono::seconds kDeadline{60};

/// Waits until `condition` holds; false when it does not within the deadline.
bool WaitUntil(const std::function<bool()> &condition,
               std::chrono::milliseconds deadline = kDeadline);

} // namespace os
