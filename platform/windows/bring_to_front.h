#pragma once

#include <windows.h>

namespace platform {

/// The calls that restore, raise and activate `window`, in their order. `Calls` is the system or a
/// test that records. The own thread shares the input of the foreground thread meanwhile, or the
/// system would refuse to change the foreground window. Top-most and back again puts the window
/// above all others without leaving it there. No result is looked at.
template<class Calls> void BringToFrontSequence(Calls &calls, HWND window)
{
    constexpr UINT kOnlyOrder = SWP_NOSIZE | SWP_NOMOVE;
    auto *const foreground = calls.GetForegroundWindow();
    const DWORD foregroundThread = calls.GetWindowThreadProcessId(foreground, nullptr);
    const DWORD ownThread = calls.GetCurrentThreadId();
    calls.AttachThreadInput(ownThread, foregroundThread, TRUE);
    calls.ShowWindow(window, SW_SHOWNORMAL);
    calls.SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kOnlyOrder);
    calls.SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kOnlyOrder);
    calls.SetForegroundWindow(window);
    calls.AttachThreadInput(ownThread, foregroundThread, FALSE);
}

} // namespace platform
