#include "tests/unit/platform/support/desktop.h"

#include <windows.h>

namespace contract {
namespace {

using platform::WindowHandle;

HWND ToNative(WindowHandle window)
{
    return reinterpret_cast<HWND>(window);
}

} // namespace

struct TestWindow::State
{
    HWND window;
};

TestWindow::TestWindow()
    : state_(std::make_unique<State>())
{
    constexpr int kPlace = 50;
    constexpr int kWidth = 300;
    constexpr int kHeight = 200;
    auto *const program = ::GetModuleHandleA(nullptr);
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = ::DefWindowProcA;
    windowClass.hInstance = program;
    windowClass.lpszClassName = "ContractWindow";
    ::RegisterClassA(&windowClass);
    state_->window = ::CreateWindowA(windowClass.lpszClassName,
                                     "contract",
                                     WS_OVERLAPPEDWINDOW,
                                     kPlace,
                                     kPlace,
                                     kWidth,
                                     kHeight,
                                     nullptr,
                                     nullptr,
                                     program,
                                     nullptr);
    ::ShowWindow(state_->window, SW_SHOWNORMAL);
}

TestWindow::~TestWindow()
{
    ::DestroyWindow(state_->window);
}

WindowHandle TestWindow::Handle() const
{
    return reinterpret_cast<WindowHandle>(state_->window);
}

void TestWindow::Pump()
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

struct SystemDropShadow::State
{
    BOOL previous;
};

SystemDropShadow::SystemDropShadow(bool enabled)
    : state_(std::make_unique<State>())
{
    const INT_PTR value = enabled ? TRUE : FALSE;
    ::SystemParametersInfoA(SPI_GETDROPSHADOW, 0, &state_->previous, 0);
    ::SystemParametersInfoA(SPI_SETDROPSHADOW, 0, reinterpret_cast<void *>(value), 0);
}

SystemDropShadow::~SystemDropShadow()
{
    const INT_PTR value = state_->previous;
    ::SystemParametersInfoA(SPI_SETDROPSHADOW, 0, reinterpret_cast<void *>(value), 0);
}

} // namespace contract
