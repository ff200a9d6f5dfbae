#include "platform/window.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

bool writesTheSetting = false;

// The system call, failing.
BOOL WINAPI FailingSystemParametersInfo(UINT action, UINT /*size*/, void *setting, UINT /*notify*/)
{
    EXPECT_EQ(action, static_cast<UINT>(SPI_GETDROPSHADOW));
    if (writesTheSetting) {
        *static_cast<BOOL *>(setting) = TRUE;
    }
    return FALSE;
}

} // namespace

// Through this pointer the whole program calls the function; the linker prefers this definition to
// the one of the import library.
extern "C" {
extern decltype(&FailingSystemParametersInfo) __imp_SystemParametersInfoA;
decltype(&FailingSystemParametersInfo) __imp_SystemParametersInfoA = &FailingSystemParametersInfo;
}

namespace {

TEST(DropShadow, IsOffWhenTheSystemCallFails)
{
    writesTheSetting = false;
    EXPECT_FALSE(platform::DropShadowEnabled());
}

TEST(DropShadow, IsTheSettingWhateverTheSystemCallReturns)
{
    writesTheSetting = true;
    EXPECT_TRUE(platform::DropShadowEnabled());
}

} // namespace
