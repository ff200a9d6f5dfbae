#include "platform/named_mutex.h"
#include "tests/unit/platform/support/scratch_folder.h"
#include "tests/unit/platform/support/system.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using platform::NamedMutex;

class PosixNamedMutex : public testing::Test
{
protected:
    NamedMutex Create()
    {
        return NamedMutex::Create({name_.begin(), name_.end()}, error_);
    }
    std::filesystem::path LockFile() const
    {
        return folder_ / (name_ + ".lock");
    }

    static mode_t ModeOf(const std::filesystem::path &file)
    {
        constexpr mode_t kPermissions = 07777;
        struct stat status = {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_mode & kPermissions;
    }

    /// The descriptor of this process that is open on `file`; -1 when there is none.
    static int DescriptorOn(const std::filesystem::path &file)
    {
        for (const auto &item : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code ignored;
            if (std::filesystem::read_symlink(item.path(), ignored) == file) {
                return std::stoi(item.path().filename().string());
            }
        }
        return -1;
    }

    contract::ScratchFolder folder_;
    contract::ScopedVariable runtimeFolder_{"XDG_RUNTIME_DIR", folder_.Path().string()};
    std::string name_ = contract::UniqueName("ktr_contract_mutex");
    std::uint32_t error_ = 4711;
};

TEST_F(PosixNamedMutex, LockFileIsCreatedForAllToReadAndStays)
{
    NamedMutex mutex = Create();
    EXPECT_EQ(ModeOf(LockFile()), 0644U);
    mutex.Release();
    mutex.Close();
    EXPECT_TRUE(std::filesystem::exists(LockFile()));
}

TEST_F(PosixNamedMutex, AStrictMaskDoesNotLockOthersOut)
{
    constexpr mode_t kNothingForOthers = 077;
    const mode_t before = ::umask(kNothingForOthers);
    const NamedMutex mutex = Create();
    ::umask(before);
    EXPECT_EQ(ModeOf(LockFile()), 0644U);
}

TEST_F(PosixNamedMutex, AnExistingFileIsOpenedForReadingAndLeftAsItIs)
{
    constexpr mode_t kReadOnly = 0444;
    contract::WriteFile(LockFile(), "content");
    ASSERT_EQ(::chmod(LockFile().c_str(), kReadOnly), 0);
    const NamedMutex mutex = Create();
    EXPECT_EQ(error_, platform::kErrorNone);
    const int descriptor = DescriptorOn(LockFile());
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(::fcntl(descriptor, F_GETFL) & O_ACCMODE, O_RDONLY);
    EXPECT_EQ(contract::ReadFile(LockFile()), "content");
    EXPECT_EQ(ModeOf(LockFile()), kReadOnly);
}

TEST_F(PosixNamedMutex, TheDescriptorIsClosedOnExec)
{
    const NamedMutex mutex = Create();
    const int descriptor = DescriptorOn(LockFile());
    ASSERT_GE(descriptor, 0);
    EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(PosixNamedMutex, WithoutARuntimeFolderItLiesInTmp)
{
    const std::filesystem::path file = "/tmp/" + name_ + ".lock";
    ::unsetenv("XDG_RUNTIME_DIR"); // the fixture sets it back
    Create().Close();
    EXPECT_TRUE(std::filesystem::remove(file));
    const contract::ScopedVariable empty("XDG_RUNTIME_DIR", "");
    Create().Close();
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(PosixNamedMutex, APipeOfThatNameHoldsNobodyUp)
{
    ASSERT_EQ(::mkfifo(LockFile().c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_TRUE(Create());
    EXPECT_EQ(error_, platform::kErrorNone);
}

TEST_F(PosixNamedMutex, ALinkThatLeadsNowhereIsAnyOtherFailure)
{
    std::filesystem::create_symlink(folder_ / "missing/file", LockFile());
    EXPECT_FALSE(Create());
    EXPECT_NE(error_, platform::kErrorNone);
    EXPECT_NE(error_, platform::kErrorAccessDenied);
    EXPECT_NE(error_, platform::kErrorAlreadyExists);
}

TEST_F(PosixNamedMutex, ANameIsNoPath)
{
    name_ = "../" + name_;
    EXPECT_FALSE(Create());
    EXPECT_NE(error_, platform::kErrorNone);
    EXPECT_FALSE(std::filesystem::exists(LockFile()));
}

// A process that was just forked, to start another program, still has every descriptor.
TEST_F(PosixNamedMutex, ClosingUnlocksAlsoWhileAForkedProcessSharesTheDescriptor)
{
    NamedMutex mutex = Create();
    ASSERT_EQ(error_, platform::kErrorNone);
    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t forked = ::fork();
    if (forked == 0) {
        char byte = 0;
        ::close(pipe[1]);
        _exit(static_cast<int>(::read(pipe[0], &byte, 1)));
    }
    ASSERT_GT(forked, 0);
    ::close(pipe[0]);
    mutex.Close();
    mutex = Create();
    EXPECT_EQ(error_, platform::kErrorNone);
    ::close(pipe[1]);
    EXPECT_EQ(::waitpid(forked, nullptr, 0), forked);
}

} // namespace
