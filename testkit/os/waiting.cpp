#include "testkit/os/waiting.h"

#include <thread>

namespace os {

bool WaitUntil(const std::function<bool()> &condition, std::chrono::milliseconds deadline)
{
    constexpr std::chrono::milliseconds kPause{3};
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return condition();
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

} // namespace os
