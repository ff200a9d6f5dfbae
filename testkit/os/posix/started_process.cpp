#include "testkit/os/os.h"
#include "testkit/os/waiting.h"

#include <csignal>
#include <optional>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace os {
namespace {

// As a shell reports it: no child of ours returns this code.
constexpr int kSignalled = 128;

} // namespace

struct StartedProcess::State
{
    pid_t id = 0;
    std::optional<int> status;
};

StartedProcess::StartedProcess(const std::filesystem::path &program,
                               const std::vector<std::string> &arguments)
    : state_(std::make_unique<State>())
{
    std::vector<std::string> texts = {program.string()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    if (::posix_spawn(&state_->id, program.c_str(), nullptr, nullptr, pointers.data(), environ) !=
        0) {
        state_->status = -1;
    }
}

StartedProcess::StartedProcess(StartedProcess &&other) noexcept = default;

StartedProcess::~StartedProcess()
{
    if (state_) {
        EndAtOnce();
    }
}

std::uint32_t StartedProcess::Id() const
{
    return static_cast<std::uint32_t>(state_->id);
}

int StartedProcess::WaitForEnd()
{
    WaitUntil([this] {
        int status = 0;
        if (!state_->status && ::waitpid(state_->id, &status, WNOHANG) == state_->id) {
            state_->status =
                WIFSIGNALED(status) ? kSignalled + WTERMSIG(status) : WEXITSTATUS(status);
        }
        return state_->status.has_value();
    });
    return state_->status.value_or(-1);
}

void StartedProcess::EndAtOnce()
{
    if (!state_->status) {
        ::kill(state_->id, SIGKILL);
        WaitForEnd();
    }
}

int StatusOfTerminated(std::uint32_t)
{
    return kSignalled + SIGKILL;
}

} // namespace os
