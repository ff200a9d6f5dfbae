#include "tests/unit/platform/support/mutex_test.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using platform::NamedMutex;

class PosixNamedMutex : public contract::MutexTest
{
protected:
    static mode_t ModeOf(const std::filesystem::path &file)
    {
        return static_cast<mode_t>(std::filesystem::status(file).permissions());
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

    std::filesystem::path file_ = lockFolder_ / (name_ + ".lock");
};

TEST_F(PosixNamedMutex, LockFileIsCreatedForAllToReadAndStays)
{
    constexpr mode_t kNothingForOthers = 077;
    const mode_t before = ::umask(kNothingForOthers);
    NamedMutex mutex = Create();
    ::umask(before);
    EXPECT_EQ(ModeOf(file_), 0644U);
    mutex.Release();
    mutex.Close();
    EXPECT_TRUE(std::filesystem::exists(file_));
}

TEST_F(PosixNamedMutex, AnExistingFileIsOpenedReadOnlyAndCloseOnExecAndLeftAsItIs)
{
    constexpr mode_t kReadOnly = 0444;
    contract::WriteFile(file_, "content");
    ASSERT_EQ(::chmod(file_.c_str(), kReadOnly), 0);
    const NamedMutex mutex = Create();
    EXPECT_EQ(error_, platform::kErrorNone);
    const int descriptor = DescriptorOn(file_);
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(::fcntl(descriptor, F_GETFL) & O_ACCMODE, O_RDONLY);
    EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
    EXPECT_EQ(contract::ReadFile(file_), "content");
    EXPECT_EQ(ModeOf(file_), kReadOnly);
}

TEST_F(PosixNamedMutex, ANewFileIsClosedOnExec)
{
    const NamedMutex mutex = Create();
    const int descriptor = DescriptorOn(file_);
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

TEST_F(PosixNamedMutex, APipeOfThatNameDoesNotBlock)
{
    ASSERT_EQ(::mkfifo(file_.c_str(), S_IRUSR | S_IWUSR), 0);
    ExpectFree();
}

TEST_F(PosixNamedMutex, ALinkThatLeadsNowhereOrANameWithAPathIsAnotherFailure)
{
    std::filesystem::create_symlink(lockFolder_ / "missing/file", file_);
    ExpectAnotherFailure();
    std::filesystem::create_directory(lockFolder_ / "below");
    const std::string other = contract::UniqueName("ktr_contract_mutex");
    name_ = "below/../" + other;
    ExpectAnotherFailure();
    EXPECT_FALSE(std::filesystem::exists(lockFolder_ / (other + ".lock")));
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
    ExpectFree();
    ::close(pipe[1]);
    EXPECT_EQ(::waitpid(forked, nullptr, 0), forked);
}

} // namespace
