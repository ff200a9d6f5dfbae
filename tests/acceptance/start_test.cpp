// The program starts, shows its window, and closes without a clean-up. files/sandbox lies in the
// working folder of this program.

#include "tests/acceptance/sandbox.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

namespace fs = std::filesystem;

TEST(Start, ShowsAWindowThatClosesWithoutACleanUp)
{
    const Sandbox sandbox(fs::current_path() / "files" / "sandbox");
    std::string times;
    for (int start = 0; start < 3; ++start) {
        fs::remove(sandbox.Journal());
        const ULONGLONG began = ::GetTickCount64();
        const auto program = sandbox.Start();
        times += (times.empty() ? "" : ", ") + std::to_string(::GetTickCount64() - began);
        HWND window = WindowOf(*program);
        ASSERT_NE(window, nullptr);
        ::PostMessageW(window, WM_CLOSE, 0, 0);
        constexpr DWORD kDeadline = 60000;
        EXPECT_EQ(program->Wait(kDeadline), 0);
        std::ifstream file(sandbox.Journal(), std::ios::binary);
        const std::string journal(std::istreambuf_iterator<char>(file), {});
        EXPECT_NE(journal.find("SkyrelWrap.DLL"), std::string::npos) << journal;
        EXPECT_EQ(journal.find("clearKTR.bat"), std::string::npos) << journal;
    }
    RecordProperty("milliseconds", times);
}

} // namespace
