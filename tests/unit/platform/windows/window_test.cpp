#include "platform/window.h"
#include "tests/unit/platform/support/desktop.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <gtest/gtest.h>

extern "C" {
extern decltype(&::GetForegroundWindow) __imp_GetForegroundWindow;
extern decltype(&::SetForegroundWindow) __imp_SetForegroundWindow;
extern decltype(&::SystemParametersInfoA) __imp_SystemParametersInfoA;
}

namespace {

using contract::ReplaceImport;

HWND WINAPI NoForegroundWindow()
{
    return nullptr;
}

HWND foreground = nullptr;

// Windows may refuse the real call: a window of another process is in the foreground.
WINBOOL WINAPI NoteForegroundWindow(HWND window)
{
    foreground = window;
    return TRUE;
}

TEST(WindowsWindow, ComesToTheFrontAlsoWhenNoWindowIsInTheForeground)
{
    const contract::TestWindow window = contract::OpenWindow();
    contract::Minimise(window.handle);
    ASSERT_TRUE(contract::IsMinimised(window.handle));
    {
        const auto none = ReplaceImport(__imp_GetForegroundWindow, NoForegroundWindow);
        const auto noted = ReplaceImport(__imp_SetForegroundWindow, NoteForegroundWindow);
        platform::BringToFront(window.handle);
    }
    EXPECT_TRUE(contract::IsShown(window.handle));
    EXPECT_EQ(reinterpret_cast<platform::WindowHandle>(foreground), window.handle);
    EXPECT_FALSE(contract::IsTopMost(window.handle));
}

template<WINBOOL kSetting> WINBOOL WINAPI FailWith(UINT action, UINT, void *setting, UINT)
{
    EXPECT_EQ(action, UINT{SPI_GETDROPSHADOW});
    *static_cast<WINBOOL *>(setting) |= kSetting;
    return FALSE;
}

TEST(DropShadow, IsWhatTheCallWroteEvenIfItFailsAndOffIfItWroteNothing)
{
    {
        const auto failing = ReplaceImport(__imp_SystemParametersInfoA, FailWith<FALSE>);
        EXPECT_FALSE(platform::DropShadowEnabled());
    }
    const auto failing = ReplaceImport(__imp_SystemParametersInfoA, FailWith<TRUE>);
    EXPECT_TRUE(platform::DropShadowEnabled());
}

} // namespace
