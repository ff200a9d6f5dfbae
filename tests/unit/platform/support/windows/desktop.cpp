#include "tests/unit/platform/support/desktop.h"

#include <windows.h>

namespace contract {
namespace {

using platform::WindowHandle;

HWND ToNative(WindowHandle window)
{
    return reinterpret_cast<HWND>(window);
}

void SetDropShadow(BOOL enabled)
{
    const INT_PTR value = enabled;
    ::SystemParametersInfoA(SPI_SETDROPSHADOW, 0, reinterpret_cast<void *>(value), 0);
}

} // namespace

TestWindow OpenWindow()
{
    constexpr int kPlace = 50;
    constexpr int kWidth = 300;
    constexpr int kHeight = 200;
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = ::DefWindowProcA;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "ContractWindow";
    ::RegisterClassA(&windowClass);
    HWND window = ::CreateWindowA(windowClass.lpszClassName,
                                  "contract",
                                  WS_OVERLAPPEDWINDOW,
                                  kPlace,
                                  kPlace,
                                  kWidth,
                                  kHeight,
                                  nullptr,
                                  nullptr,
                                  windowClass.hInstance,
                                  nullptr);
    ::ShowWindow(window, SW_SHOWNORMAL);
    return {reinterpret_cast<WindowHandle>(window), AtEnd([window] { ::DestroyWindow(window); })};
}

void PumpMessages()
{
    MSG message = {};
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
}

void Minimise(WindowHandle window)
{
    ::ShowWindow(ToNative(window), SW_MINIMIZE);
}

bool IsMinimised(WindowHandle window)
{
    return ::IsIconic(ToNative(window)) != FALSE;
}

bool IsShown(WindowHandle window)
{
    return ::IsWindowVisible(ToNative(window)) != FALSE && !IsMinimised(window);
}

bool IsAbove(WindowHandle upper, WindowHandle lower)
{
    for (HWND window = ToNative(upper); window != nullptr;
         window = ::GetWindow(window, GW_HWNDNEXT)) {
        if (window == ToNative(lower)) {
            return upper != lower;
        }
    }
    return false;
}

bool IsActive(WindowHandle window)
{
    return ::GetForegroundWindow() == ToNative(window);
}

bool IsTopMost(WindowHandle window)
{
    return (::GetWindowLongA(ToNative(window), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

Held SystemDropShadow(bool enabled)
{
    BOOL previous = FALSE;
    ::SystemParametersInfoA(SPI_GETDROPSHADOW, 0, &previous, 0);
    SetDropShadow(enabled ? TRUE : FALSE);
    return AtEnd([previous] { SetDropShadow(previous); });
}

} // namespace contract
