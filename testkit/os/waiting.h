#pragma once

#include <chrono>
#include <functional>

namespace os {

/// Far longer than any wait on a busy machine: only a failing test reaches it.
inline constexpr std::chrono::seconds kDeadline{60};

/// Waits until `condition` holds; false when it does not within the deadline.
bool WaitUntil(const std::function<bool()> &condition,
               std::chrono::milliseconds deadline = kDeadline);

} // namespace os
