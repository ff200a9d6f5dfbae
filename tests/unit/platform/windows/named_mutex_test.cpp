#include "tests/unit/platform/support/child.h"
#include "tests/unit/platform/support/mutex_test.h"

#include <windows.h>

namespace {

using WindowsNamedMutex = contract::MutexTest;

TEST_F(WindowsNamedMutex, IsOwnedByItsCreatorUntilItIsReleased)
{
    contract::StartedChild owner;
    ASSERT_EQ(owner.Ask({"create-mutex", name_}), "0 handle");
    HANDLE mutex = ::OpenMutexA(SYNCHRONIZE, FALSE, name_.c_str());
    ASSERT_NE(mutex, nullptr);
    EXPECT_EQ(::WaitForSingleObject(mutex, 0), DWORD{WAIT_TIMEOUT});
    owner.Ask({"release-mutex"});
    EXPECT_EQ(::WaitForSingleObject(mutex, 0), DWORD{WAIT_OBJECT_0});
    ::CloseHandle(mutex);
}

} // namespace
