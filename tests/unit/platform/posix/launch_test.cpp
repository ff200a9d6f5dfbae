#include "platform/launch.h"
#include "tests/unit/platform/support/child.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using contract::DetachedChild;
using testing::HasSubstr;
using testing::Not;

class PosixLaunch : public testing::Test
{
protected:
    std::string WriteScript(const std::string &content)
    {
        const auto script = folder_ / "script";
        contract::WriteFile(script, content);
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        return script.string();
    }

    static void ExpectNothingToWaitFor()
    {
        errno = 0;
        EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
        EXPECT_EQ(errno, ECHILD);
    }

    contract::ScratchFolder folder_;
    std::string program_ = contract::ChildProgram().string();
};

TEST_F(PosixLaunch, RunsInASessionOfItsOwnWithoutStreamsOrDescriptorsOfItsParent)
{
    const int leaking = ::open("/dev/zero", O_RDONLY); // not close-on-exec, on purpose
    DetachedChild child(program_);
    ::close(leaking);
    const std::string facts = child.Ask({"facts"});
    EXPECT_TRUE(contract::IsHidden(facts)) << facts;
    EXPECT_THAT(facts, Not(testing::ContainsRegex("descriptor ([3-9]|[0-9][0-9])"))) << facts;
    EXPECT_THAT(facts, Not(HasSubstr("parent " + std::to_string(::getpid()) + '\n')));
    ExpectNothingToWaitFor();
}

TEST_F(PosixLaunch, FailureLeavesNothingToWaitFor)
{
    platform::LaunchDetached(WriteScript("no program"), folder_.Path().string(), {});
    platform::LaunchDetached(program_, (folder_ / "missing").string(), {});
    ExpectNothingToWaitFor();
}

TEST_F(PosixLaunch, NoSignalIsBlockedOrIgnored)
{
    sigset_t term;
    sigset_t before;
    ::sigemptyset(&term);
    ::sigaddset(&term, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &term, &before);
    auto *const handler = ::signal(SIGPIPE, SIG_IGN);
    DetachedChild child(program_);
    ::signal(SIGPIPE, handler);
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    const std::string facts = child.Ask({"facts"});
    EXPECT_THAT(facts, HasSubstr("SigBlk:\t0000000000000000\n"));
    EXPECT_THAT(facts, HasSubstr("SigIgn:\t0000000000000000\n"));
}

TEST_F(PosixLaunch, AScriptRunsByItsFirstLine)
{
    const std::string script = WriteScript("#!/bin/sh\nexec '" + program_ + "' \"$@\"\n");
    EXPECT_EQ(DetachedChild(script + " \"/some/where else\"").Ask({"arguments"}),
              program_ + "\n/some/where else\n");
}

TEST_F(PosixLaunch, ARelativeProgramIsRelativeToTheDirectoryOfItsParent)
{
    contract::CopyChildProgram(folder_ / "here/program");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_ / "here");
    {
        DetachedChild child("./program x", folder_.Path());
        EXPECT_EQ(child.Ask({"directory"}), folder_.Path().string());
        EXPECT_EQ(child.Ask({"arguments"}), "./program\nx\n");
    }
    std::filesystem::current_path(before);
}

} // namespace
