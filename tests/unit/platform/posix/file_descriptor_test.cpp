#include "platform/posix/file_descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <utility>

namespace {

using platform::FileDescriptor;
using platform::FolderStream;

int OpenSomething()
{
    return ::open("/dev/null", O_RDONLY | O_CLOEXEC);
}

bool IsOpen(int descriptor)
{
    return ::fcntl(descriptor, F_GETFD) >= 0;
}

TEST(FileDescriptor, EmptyIsMinusOne)
{
    EXPECT_FALSE(FileDescriptor());
    EXPECT_FALSE(FileDescriptor(-1));
    EXPECT_EQ(FileDescriptor().Get(), -1);
}

TEST(FileDescriptor, OwnsWhatItIsGivenUntilItMovesOrGoes)
{
    const int descriptor = OpenSomething();
    const int replaced = OpenSomething();
    {
        FileDescriptor first(descriptor);
        FileDescriptor second(replaced);
        EXPECT_TRUE(first);
        second = std::move(first);
        EXPECT_EQ(second.Get(), descriptor);
        EXPECT_TRUE(IsOpen(descriptor));
        EXPECT_FALSE(IsOpen(replaced));
    }
    EXPECT_FALSE(IsOpen(descriptor));
}

template<class Owner> void ExpectCloseToKeepTheLastError(Owner owner)
{
    errno = EDOM;
    owner.Close();
    EXPECT_EQ(errno, EDOM);
    EXPECT_FALSE(owner);
}

TEST(FileDescriptor, ClosingKeepsTheLastErrorAlsoWhenItFails)
{
    ExpectCloseToKeepTheLastError(FileDescriptor(OpenSomething()));
    ExpectCloseToKeepTheLastError(FileDescriptor(1 << 20));
    FolderStream closed(::opendir("/"));
    ASSERT_TRUE(closed);
    ::close(::dirfd(closed.Get()));
    ExpectCloseToKeepTheLastError(std::move(closed));
}

} // namespace
