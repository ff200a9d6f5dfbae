#include "testkit/fakes/fake.h"

#include "testkit/os/os.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <fstream>
#include <sstream>
#include <system_error>
#include <thread>

namespace fake {

namespace fs = std::filesystem;

namespace {

constexpr const char *kMarkFile = "sandbox.mark";
constexpr const char *kJournalFile = "journal.log";
constexpr const char *kStateFolder = "state";
constexpr auto kPoll = std::chrono::milliseconds(10);

std::string ReadAll(const fs::path &file)
{
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string Trimmed(const std::string &text)
{
    const char *spaces = " \t\r\n";
    const auto first = text.find_first_not_of(spaces);
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

bool Exists(const fs::path &file)
{
    std::error_code ignored;
    return fs::exists(file, ignored);
}

} // namespace

Fake::Fake(const fs::path &self)
    : name_(self.filename().u8string())
    , folder_(self.parent_path())
{
    for (fs::path folder = folder_;; folder = folder.parent_path()) {
        if (Exists(folder / kMarkFile)) {
            root_ = folder;
            mark_ = ReadAll(root_ / kMarkFile);
            break;
        }
        if (folder == folder.parent_path()) {
            break;
        }
    }
    ReadSettings(folder_ / fs::u8path(name_ + ".txt"));
}

void Fake::ReadSettings(const fs::path &file)
{
    std::istringstream lines(ReadAll(file));
    for (std::string line; std::getline(lines, line);) {
        line = Trimmed(line);
        const auto equals = line.find('=');
        if (equals == std::string::npos || line.front() == '#') {
            continue;
        }
        settings_.emplace_back(Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
    }
}

const fs::path &Fake::Folder() const
{
    return folder_;
}

std::vector<std::string> Fake::All(std::string_view key) const
{
    std::vector<std::string> values;
    for (const auto &[name, value] : settings_) {
        if (name == key) {
            values.push_back(value);
        }
    }
    return values;
}

std::string Fake::Text(std::string_view key, std::string_view fallback) const
{
    const auto values = All(key);
    return values.empty() ? std::string(fallback) : values.back();
}

long Fake::Number(std::string_view key, long fallback) const
{
    const std::string text = Text(key);
    long number = 0;
    const char *end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end ? number : fallback;
}

fs::path Fake::Path(std::string_view key) const
{
    const std::string text = Text(key);
    return text.empty() ? fs::path() : folder_ / fs::u8path(text);
}

fs::path Fake::StateFile(std::string_view name) const
{
    if (root_.empty()) {
        return folder_ / fs::u8path(name);
    }
    std::string place = folder_.lexically_relative(root_).generic_u8string();
    std::replace(place.begin(), place.end(), '/', '-');
    return root_ / kStateFolder / fs::u8path(place + "." + std::string(name));
}

void Fake::Tell(Settings settings)
{
    settings_ = std::move(settings);
}

std::vector<std::string> Fake::NewNotes()
{
    const std::lock_guard<std::mutex> guard(lock_);
    return std::exchange(notes_, {});
}

void Fake::Note(std::string_view event, const std::vector<std::string> &fields) const
{
    std::string line(event);
    std::string note(event);
    for (const std::string &field : fields) {
        line += '\t' + field;
        note += field.rfind("pid=", 0) == 0 ? "" : ' ' + field;
    }
    {
        const std::lock_guard<std::mutex> guard(lock_);
        notes_.push_back(note);
    }
    fs::path journal = Path("journal");
    if (journal.empty()) {
        if (root_.empty() || !SandboxExists()) {
            return;
        }
        journal = root_ / kJournalFile;
    }
    os::AppendAtomically(journal, Escape(name_) + '\t' + line + '\n');
}

bool Fake::SandboxExists() const
{
    return ReadAll(root_ / kMarkFile) == mark_;
}

void Fake::WaitWhile(const std::function<bool()> &condition) const
{
    while (condition() && (root_.empty() || SandboxExists())) {
        std::this_thread::sleep_for(kPoll);
    }
}

void Fake::Hold(long fallbackMs) const
{
    const fs::path file = Path("hold_file");
    if (!file.empty() && Exists(file)) {
        WaitWhile([&file] { return Exists(file); });
        return;
    }
    using Clock = std::chrono::steady_clock;
    const long milliseconds = Number("run_ms", fallbackMs);
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    WaitWhile([milliseconds, end] { return milliseconds < 0 || Clock::now() < end; });
}

} // namespace fake
