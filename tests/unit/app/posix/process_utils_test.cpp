#include "app/process_utils.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace {

// Windows starts no program by such a path.
TEST(ProcessesOfTheSystem, APathBeyondTheLimitIsPassedOver)
{
    const contract::ScratchFolder folder;
    const auto inside = folder / std::string(100, 'a') / std::string(200, 'b');
    std::filesystem::create_directories(inside);
    std::filesystem::copy_file(CONTRACT_CHILD, inside / "helper.exe");
    contract::StartedChild helper(inside / "helper.exe");
    EXPECT_FALSE(KillProcessInDir(L"helper.exe", inside.wstring()));
    EXPECT_TRUE(contract::IsRunning(helper.Process().Id()));
}

TEST(ProcessesOfTheSystem, WithoutTheirListNothingIsEnded)
{
    const contract::ScratchFolder folder;
    std::filesystem::copy_file(CONTRACT_CHILD, folder / "helper.exe");
    contract::StartedChild helper(folder / "helper.exe");
    const std::wstring place = folder.Path().wstring();
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit nothingOpens = {0, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &nothingOpens), 0);
    // Nothing else here: without descriptors, the sanitizer reports every virtual call.
    const bool ended = KillProcessInDir(L"helper.exe", place);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(ended);
    EXPECT_TRUE(contract::IsRunning(helper.Process().Id()));
    EXPECT_TRUE(KillProcessInDir(L"helper.exe", place));
    EXPECT_EQ(helper.Process().WaitForEnd(), contract::StatusOfTerminated(0));
}

} // namespace
