#include "platform/windows/handle.h"
#include "tests/unit/platform/windows/replaced_import.h"

#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

extern "C" {
extern decltype(&::RegCloseKey) __imp_RegCloseKey;
}

namespace {

using platform::ObjectHandle;
using platform::RegistryHandle;
using platform::SnapshotHandle;

HANDLE NewEvent()
{
    return ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
}

bool IsOpen(HANDLE handle)
{
    DWORD flags = 0;
    return ::GetHandleInformation(handle, &flags) != FALSE;
}

TEST(Handle, EachKindKnowsItsOwnEmptyValue)
{
    EXPECT_FALSE(ObjectHandle());
    EXPECT_FALSE(ObjectHandle(nullptr));
    EXPECT_TRUE(ObjectHandle(INVALID_HANDLE_VALUE));
    EXPECT_EQ(ObjectHandle().Get(), nullptr);
    EXPECT_FALSE(SnapshotHandle());
    EXPECT_FALSE(SnapshotHandle(INVALID_HANDLE_VALUE));
    EXPECT_TRUE(SnapshotHandle(nullptr));
    EXPECT_EQ(SnapshotHandle().Get(), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(RegistryHandle());
    EXPECT_FALSE((std::is_convertible_v<ObjectHandle, SnapshotHandle>));
}

TEST(Handle, ClosesWhatItOwns)
{
    const HANDLE event = NewEvent();
    HKEY key = nullptr;
    ASSERT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, "Software", 0, KEY_READ, &key), ERROR_SUCCESS);
    {
        const ObjectHandle eventOwner(event);
        const RegistryHandle keyOwner(key);
        EXPECT_TRUE(keyOwner);
        EXPECT_TRUE(IsOpen(event));
        EXPECT_TRUE(IsOpen(key));
    }
    EXPECT_FALSE(IsOpen(event));
    EXPECT_FALSE(IsOpen(key));
}

template<class Owner> void ExpectCloseToKeepTheLastError(Owner owner)
{
    constexpr DWORD kSomeError = 4711;
    ::SetLastError(kSomeError);
    owner.Close();
    EXPECT_EQ(::GetLastError(), kSomeError);
    EXPECT_FALSE(owner);
}

LSTATUS WINAPI FailToClose(HKEY)
{
    ::SetLastError(ERROR_INVALID_HANDLE);
    return ERROR_INVALID_HANDLE;
}

TEST(Handle, ClosingKeepsTheLastErrorAlsoWhenItFails)
{
    ExpectCloseToKeepTheLastError(ObjectHandle(NewEvent()));
    ExpectCloseToKeepTheLastError(ObjectHandle(reinterpret_cast<HANDLE>(0xABCDE0)));
    const auto failing = contract::ReplaceImport(__imp_RegCloseKey, FailToClose);
    ExpectCloseToKeepTheLastError(RegistryHandle(HKEY_CURRENT_USER));
}

} // namespace
