#include "tests/unit/platform/support/mailbox.h"

#include "tests/unit/platform/support/scratch_folder.h"
#include "tests/unit/platform/support/waiting.h"

#include <sstream>
#include <utility>

namespace contract {
namespace {

constexpr const char *kCommand = "command";
constexpr const char *kAnswer = "answer";

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
    const std::filesystem::path file = File(kind);
    std::filesystem::path draft = file;
    draft += ".draft";
    WriteFile(draft, content);
    std::error_code ignored; // the other side may have gone
    std::filesystem::rename(draft, file, ignored);
}

std::optional<Lines> Mailbox::NextCommand()
{
    ++number_;
    if (!std::filesystem::exists(File(kCommand))) {
        --number_;
        return std::nullopt;
    }
    Lines lines;
    std::istringstream text(ReadFile(File(kCommand)));
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
    const bool answered = WaitUntil([this] { return std::filesystem::exists(File(kAnswer)); });
    return answered ? ReadFile(File(kAnswer)) : "(no answer)";
}

} // namespace contract
