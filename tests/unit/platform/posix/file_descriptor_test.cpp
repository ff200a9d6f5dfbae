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

TEST(FileDescriptor, ClosesWhatItOwns)
{
    const int descriptor = OpenSomething();
    {
        const FileDescriptor owner(descriptor);
        EXPECT_TRUE(owner);
        EXPECT_TRUE(IsOpen(descriptor));
    }
    EXPECT_FALSE(IsOpen(descriptor));
}

TEST(FileDescriptor, MovingHandsItOver)
{
    const int descriptor = OpenSomething();
    const int replaced = OpenSomething();
    FileDescriptor first(descriptor);
    FileDescriptor second(replaced);
    second = std::move(first);
    EXPECT_EQ(second.Get(), descriptor);
    EXPECT_TRUE(IsOpen(descriptor));
    EXPECT_FALSE(IsOpen(replaced));
}

TEST(FileDescriptor, ClosingKeepsTheLastError)
{
    FileDescriptor owner(OpenSomething());
    errno = EDOM;
    owner.Close();
    EXPECT_EQ(errno, EDOM);
    EXPECT_FALSE(owner);
    FileDescriptor wrong(1 << 20); // closing it fails
    wrong.Close();
    EXPECT_EQ(errno, EDOM);
    FolderStream closed(::opendir("/"));
    ASSERT_TRUE(closed);
    ::close(::dirfd(closed.Get())); // closing the stream fails then
    errno = EDOM;
    closed.Close();
    EXPECT_EQ(errno, EDOM);
}

} // namespace
