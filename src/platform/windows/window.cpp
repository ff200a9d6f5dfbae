#include "platform/window.h"

#include <windows.h>

namespace platform {
namespace {

HWND ToNative(WindowHandle window)
{
    return reinterpret_cast<HWND>(window);
}

} // namespace

bool WindowExists(WindowHandle window)
{
    return ::IsWindow(ToNative(window)) != FALSE;
}

// Errors are ignored. HWND_TOPMOST, then HWND_NOTOPMOST, raises the window without leaving it
// top-most.
void BringToFront(WindowHandle window)
{
    constexpr UINT kOnlyOrder = SWP_NOSIZE | SWP_NOMOVE;
    HWND native = ToNative(window);
    HWND foreground = ::GetForegroundWindow();
    const DWORD foregroundThread = ::GetWindowThreadProcessId(foreground, nullptr);
    const DWORD ownThread = ::GetCurrentThreadId();
    // Windows lets only the thread that has the input change the foreground window.
    ::AttachThreadInput(ownThread, foregroundThread, TRUE);
    ::ShowWindow(native, SW_SHOWNORMAL);
    ::SetWindowPos(native, HWND_TOPMOST, 0, 0, 0, 0, kOnlyOrder);
    ::SetWindowPos(native, HWND_NOTOPMOST, 0, 0, 0, 0, kOnlyOrder);
    ::SetForegroundWindow(native);
    ::AttachThreadInput(ownThread, foregroundThread, FALSE);
}

bool DropShadowEnabled()
{
    BOOL enabled = FALSE;
    ::SystemParametersInfoA(SPI_GETDROPSHADOW, 0, &enabled, 0);
    return enabled != FALSE;
}

} // namespace platform
