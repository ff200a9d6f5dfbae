#pragma once

#include "platform/window.h"
#include "tests/unit/platform/support/system.h"

/// Windows of a desktop, seen from outside the process that they belong to.
namespace contract {

/// A visible top-level window of the calling thread, as long as the object lives.
struct TestWindow
{
    platform::WindowHandle handle = 0;
    Held open;
};
TestWindow OpenWindow();
/// Handles what the system has sent to this thread's windows. Call it again and again.
void PumpMessages();

void Minimise(platform::WindowHandle window);
bool IsMinimised(platform::WindowHandle window);
/// Whether it can be seen: mapped or visible, and not minimised.
bool IsShown(platform::WindowHandle window);
bool IsAbove(platform::WindowHandle upper, platform::WindowHandle lower);
bool IsActive(platform::WindowHandle window);
/// Whether it stays above all ordinary windows.
bool IsTopMost(platform::WindowHandle window);

/// Sets whether the system draws drop shadows, as long as the object lives.
Held SystemDropShadow(bool enabled);

} // namespace contract
