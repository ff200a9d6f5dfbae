#include "platform/library.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

// Windows tells the user of a damaged library in a box, unless the thread asks it not to.
TEST(LibraryOnWindows, NoBoxIsShownAboutALibrary)
{
    constexpr DWORD kBefore = SEM_NOGPFAULTERRORBOX;
    DWORD ours = 0;
    ASSERT_TRUE(::SetThreadErrorMode(kBefore, &ours));
    const auto path = contract::FixtureLibrary().parent_path() / "contract_error_mode.dll";
    const platform::LibraryHandle library = platform::LoadLibraryFile(path.string().c_str());
    EXPECT_EQ(::GetThreadErrorMode(), kBefore) << "the mode is the caller's again";
    ::SetThreadErrorMode(ours, nullptr);

    ASSERT_NE(library, nullptr);
    const auto modeAtLoad =
        reinterpret_cast<DWORD (*)()>(platform::FindFunction(library, "ErrorModeAtLoad"));
    ASSERT_NE(modeAtLoad, nullptr);
    EXPECT_EQ(modeAtLoad(), DWORD{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
}

} // namespace
