#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace contract {

/// Name of the environment variable that tells a child where its mailbox is.
inline constexpr const char *kMailboxVariable = "CONTRACT_MAILBOX";

/// Lines of a message; the first one says what it is about.
using Lines = std::vector<std::string>;

/// A folder through which a test and a child process talk, with files that appear whole: the test
/// numbers its commands, the child answers each one. Works for a child that has no pipe to the
/// test.
class Mailbox
{
public:
    explicit Mailbox(std::filesystem::path folder);

    /// Child: the next command, empty when there is none yet.
    std::optional<Lines> NextCommand();
    /// Child: answers the command taken last.
    void Answer(const std::string &text);
    /// Child: whether the test has gone and taken the folder with it.
    bool Abandoned() const;

    /// Test: sends a command without waiting.
    void Send(const Lines &command);
    /// Test: waits for the answer to the command sent last; `kNoAnswer` when it does not come.
    std::string AwaitAnswer();
    /// No command has this for an answer.
    static constexpr const char *kNoAnswer = "(no answer)";

private:
    std::filesystem::path File(const char *kind) const;
    void Post(const char *kind, const std::string &content) const;
    /// The complete message; no value while there is none.
    std::optional<std::string> Fetch(const char *kind) const;

    std::filesystem::path folder_;
    int number_ = 0;
};

} // namespace contract
