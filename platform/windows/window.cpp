#include "platform/window.h"

#include "platform/windows/bring_to_front.h"

namespace platform {
namespace {

HWND ToNative(WindowHandle window)
{
    return reinterpret_cast<HWND>(window);
}

struct System
{
    HWND GetForegroundWindow()
    {
        return ::GetForegroundWindow();
    }
    DWORD GetWindowThreadProcessId(HWND window, DWORD *process)
    {
        return ::GetWindowThreadProcessId(window, process);
    }
    DWORD GetCurrentThreadId()
    {
        return ::GetCurrentThreadId();
    }
    void AttachThreadInput(DWORD thread, DWORD to, BOOL attach)
    {
        ::AttachThreadInput(thread, to, attach);
    }
    void ShowWindow(HWND window, int how)
    {
        ::ShowWindow(window, how);
    }
    void SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
    {
        ::SetWindowPos(window, after, x, y, width, height, flags);
    }
    void SetForegroundWindow(HWND window)
    {
        ::SetForegroundWindow(window);
    }
};

} // namespace

bool WindowExists(WindowHandle window)
{
    return ::IsWindow(ToNative(window)) != FALSE;
}

void BringToFront(WindowHandle window)
{
    System system;
    BringToFrontSequence(system, ToNative(window));
}

bool DropShadowEnabled()
{
    BOOL enabled = FALSE;
    ::SystemParametersInfoA(SPI_GETDROPSHADOW, 0, &enabled, 0);
    return enabled != FALSE;
}

} // namespace platform
