#include "tests/unit/platform/support/mailbox.h"

#include "tests/unit/platform/support/scratch_folder.h"
#include "tests/unit/platform/support/system.h"

#include <sstream>
#include <utility>

namespace contract {
namespace {

constexpr const char *kCommand = "command";
constexpr const char *kAnswer = "answer";
constexpr const char *kEnd = "(end of message)";

} // namespace

Mailbox::Mailbox(std::filesystem::path folder)
    : folder_(std::move(folder))
{
}

std::filesystem::path Mailbox::File(const char *kind) const
{
    return folder_ / (std::to_string(number_) + '.' + kind);
}

void Mailbox::Post(const char *kind, const std::string &content) const
{
    WriteFile(File(kind), content + kEnd);
}

std::optional<std::string> Mailbox::Fetch(const char *kind) const
{
    std::string content = ReadFile(File(kind));
    const std::size_t end = content.rfind(kEnd);
    if (end == std::string::npos) {
        return std::nullopt;
    }
    content.resize(end);
    return content;
}

std::optional<Lines> Mailbox::NextCommand()
{
    ++number_;
    const auto content = Fetch(kCommand);
    if (!content) {
        --number_;
        return std::nullopt;
    }
    Lines lines;
    std::istringstream text(*content);
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

void Mailbox::Answer(const std::string &text)
{
    Post(kAnswer, text);
}

bool Mailbox::Abandoned() const
{
    return !std::filesystem::exists(folder_);
}

void Mailbox::Send(const Lines &command)
{
    ++number_;
    std::string text;
    for (const std::string &line : command) {
        text += line + '\n';
    }
    Post(kCommand, text);
}

std::string Mailbox::AwaitAnswer()
{
    std::optional<std::string> answer;
    WaitUntil([this, &answer] { return (answer = Fetch(kAnswer)).has_value(); });
    return answer.value_or(kNoAnswer);
}

} // namespace contract
