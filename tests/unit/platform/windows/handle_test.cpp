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

TEST(Handle, EachKindKnowsItsEmptyValue)
{
    EXPECT_FALSE(ObjectHandle());
    EXPECT_FALSE(ObjectHandle(nullptr));
    EXPECT_FALSE(SnapshotHandle());
    EXPECT_FALSE(SnapshotHandle(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(RegistryHandle());
    EXPECT_EQ(ObjectHandle().Get(), nullptr);
    EXPECT_EQ(SnapshotHandle().Get(), INVALID_HANDLE_VALUE);
}

TEST(Handle, OneKindsEmptyValueIsNotTheOthers)
{
    EXPECT_TRUE(ObjectHandle(INVALID_HANDLE_VALUE));
    EXPECT_TRUE(SnapshotHandle(nullptr));
    EXPECT_FALSE((std::is_convertible_v<ObjectHandle, SnapshotHandle>));
}

TEST(Handle, ClosesARegistryKey)
{
    HKEY key = nullptr;
    ASSERT_EQ(::RegOpenKeyExA(HKEY_CURRENT_USER, "Software", 0, KEY_READ, &key), ERROR_SUCCESS);
    {
        const RegistryHandle owner(key);
        EXPECT_TRUE(owner);
        EXPECT_TRUE(IsOpen(key));
    }
    EXPECT_FALSE(IsOpen(key));
}

TEST(Handle, OwnsWhatItIsGivenUntilItMovesOrGoes)
{
    const HANDLE event = NewEvent();
    const HANDLE replaced = NewEvent();
    {
        ObjectHandle first(event);
        ObjectHandle second(replaced);
        second = std::move(first);
        EXPECT_EQ(second.Get(), event);
        EXPECT_TRUE(IsOpen(event));
        EXPECT_FALSE(IsOpen(replaced));
    }
    EXPECT_FALSE(IsOpen(event));
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
