#include "platform/launch.h"
#include "tests/unit/platform/support/child.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using contract::DetachedChild;
using testing::ElementsAre;
using testing::Not;

class PosixLaunch : public testing::Test
{
protected:
    /// The facts of a child that begin with `word`.
    static contract::Lines Facts(DetachedChild &child, const std::string &word)
    {
        contract::Lines found;
        std::istringstream facts(child.Ask({"facts"}));
        for (std::string line; std::getline(facts, line);) {
            if (line.rfind(word, 0) == 0) {
                found.push_back(line);
            }
        }
        return found;
    }

    std::string WriteScript(const std::string &content)
    {
        const auto script = folder_ / "script";
        contract::WriteFile(script, content);
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        return script.string();
    }

    contract::ScratchFolder folder_;
    std::string program_ = contract::ChildProgram().string();
};

TEST_F(PosixLaunch, RunsInASessionOfItsOwn)
{
    DetachedChild child;
    child.Launch(program_, folder_.Path());
    EXPECT_THAT(Facts(child, "session"),
                Not(ElementsAre("session " + std::to_string(::getsid(0)))));
}

TEST_F(PosixLaunch, StreamsLeadNowhereAndNothingElseIsOpen)
{
    const int leaking = ::open("/dev/zero", O_RDONLY); // not close-on-exec, on purpose
    DetachedChild child;
    child.Launch(program_, folder_.Path());
    ::close(leaking);
    auto open = Facts(child, "descriptor");
    std::sort(open.begin(), open.end());
    EXPECT_THAT(
        open,
        ElementsAre("descriptor 0 /dev/null", "descriptor 1 /dev/null", "descriptor 2 /dev/null"));
}

TEST_F(PosixLaunch, LeavesNothingToWaitFor)
{
    DetachedChild child;
    child.Launch(program_, folder_.Path());
    EXPECT_THAT(Facts(child, "parent"),
                Not(ElementsAre("parent " + std::to_string(contract::OwnProcessId()))));
    errno = 0;
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(PosixLaunch, FailureLeavesNothingToWaitForEither)
{
    platform::LaunchDetached(WriteScript("no program"), folder_.Path().string(), {});
    platform::LaunchDetached(program_, (folder_ / "missing").string(), {});
    errno = 0;
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(PosixLaunch, NoSignalIsBlockedOrIgnored)
{
    sigset_t term;
    sigset_t before;
    ::sigemptyset(&term);
    ::sigaddset(&term, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &term, &before);
    auto *const handler = ::signal(SIGPIPE, SIG_IGN);
    DetachedChild child;
    child.Launch(program_, folder_.Path());
    ::signal(SIGPIPE, handler);
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    EXPECT_THAT(Facts(child, "SigBlk"), ElementsAre("SigBlk:\t0000000000000000"));
    EXPECT_THAT(Facts(child, "SigIgn"), ElementsAre("SigIgn:\t0000000000000000"));
}

TEST_F(PosixLaunch, NoShellReadsTheLine)
{
    DetachedChild child;
    child.Launch(program_ + " $HOME * ; `id` 'a", folder_.Path());
    EXPECT_EQ(child.Ask({"arguments"}), program_ + "\n$HOME\n*\n;\n`id`\n'a\n");
}

TEST_F(PosixLaunch, AScriptRunsByItsFirstLine)
{
    DetachedChild child;
    child.Launch(WriteScript("#!/bin/sh\nexec '" + program_ + "' \"$@\"\n") +
                     " \"/some/where else\"",
                 folder_.Path());
    EXPECT_EQ(child.Ask({"arguments"}), program_ + "\n/some/where else\n");
}

TEST_F(PosixLaunch, ARelativeProgramIsMeantFromHere)
{
    std::filesystem::create_directory(folder_ / "here");
    contract::CopyChildProgram(folder_ / "here/program");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_ / "here");
    {
        DetachedChild child;
        child.Launch("./program x", folder_.Path());
        EXPECT_EQ(child.Ask({"directory"}), folder_.Path().string());
        EXPECT_EQ(child.Ask({"arguments"}), "./program\nx\n");
    }
    std::filesystem::current_path(before);
}

} // namespace
