#include "platform/window.h"
#include "tests/unit/platform/support/desktop.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <gtest/gtest.h>

extern "C" {
extern decltype(&::GetForegroundWindow) __imp_GetForegroundWindow;
extern decltype(&::SystemParametersInfoA) __imp_SystemParametersInfoA;
}

namespace {

using contract::ReplacedImport;

HWND WINAPI NoForegroundWindow()
{
    return nullptr;
}

TEST(WindowsWindow, ComesToTheFrontAlsoWhenNoWindowIsInTheForeground)
{
    contract::TestWindow window;
    contract::Minimise(window.Handle());
    ASSERT_TRUE(contract::IsMinimised(window.Handle()));
    {
        const ReplacedImport none(__imp_GetForegroundWindow, NoForegroundWindow);
        platform::BringToFront(window.Handle());
    }
    EXPECT_TRUE(contract::IsShown(window.Handle()));
    EXPECT_TRUE(contract::IsActive(window.Handle()));
    EXPECT_FALSE(contract::IsTopMost(window.Handle()));
}

WINBOOL WINAPI FailWithoutASetting(UINT action, UINT, void *, UINT)
{
    EXPECT_EQ(action, UINT{SPI_GETDROPSHADOW});
    return FALSE;
}

WINBOOL WINAPI FailWithASetting(UINT action, UINT, void *setting, UINT)
{
    EXPECT_EQ(action, UINT{SPI_GETDROPSHADOW});
    *static_cast<WINBOOL *>(setting) = TRUE;
    return FALSE;
}

TEST(DropShadow, IsOffWhenTheSystemCallFails)
{
    const ReplacedImport failing(__imp_SystemParametersInfoA, FailWithoutASetting);
    EXPECT_FALSE(platform::DropShadowEnabled());
}

TEST(DropShadow, IsTheSettingWhateverTheSystemCallReturns)
{
    const ReplacedImport failing(__imp_SystemParametersInfoA, FailWithASetting);
    EXPECT_TRUE(platform::DropShadowEnabled());
}

} // namespace
