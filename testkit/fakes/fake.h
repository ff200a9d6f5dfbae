#pragma once

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What all fakes share: each reads its settings from `<own name>.txt` beside it, and all append to
/// one journal, so that a test can read what happened in order. A test that has loaded a library
/// does both through the object that the library exports.
///
/// A line of the text file is `key=value`; `#` starts a comment line; a key may be repeated. It is
/// read once, when the fake starts. Relative paths in it count from the fake's folder. The
/// key `journal` names another journal.
///
/// A line of the journal is `image TAB event TAB key=value TAB key=value ... LF`, in UTF-8. `%`,
/// control characters and bytes that are not UTF-8 are written as `%XX`, so one occurrence is
/// always one line. A list is `key=[item][item]`, with brackets inside an item escaped, too.
namespace fake {

/// `key=value` as the journal has it.
std::string Field(std::string_view key, std::string_view value);
std::string Field(std::string_view key, long long value);
std::string PathField(std::string_view key, const std::filesystem::path &value);

/// `key=[item][item]`; an empty list gives `key=`.
std::string ListField(std::string_view key, const std::vector<std::string> &items);

/// `text` with `%`, control characters, bytes that are not UTF-8 and those in `more` as `%XX`.
std::string Escape(std::string_view text, std::string_view more = {});

/// The reverse of `Escape`; a `%` without two hexadecimal digits stays.
std::string Unescape(std::string_view text);

/// Converts UTF-16 to UTF-8. An unpaired surrogate becomes three bytes that are not UTF-8.
std::string FromUtf16(const char16_t *wide);

using Settings = std::vector<std::pair<std::string, std::string>>;

/// One fake: its path, its settings and its journal.
class Fake
{
public:
    /// `self` is the full path of the executable or library.
    explicit Fake(const std::filesystem::path &self);

    const std::filesystem::path &Folder() const;

    /// The last value of `key`, or `fallback` when there is none.
    std::string Text(std::string_view key, std::string_view fallback = {}) const;
    /// All values of `key`, in the order of the file.
    std::vector<std::string> All(std::string_view key) const;
    /// The last value as a number; `fallback` when there is none or it is not a number.
    long Number(std::string_view key, long fallback) const;
    /// The last value as a path, empty when there is none.
    std::filesystem::path Path(std::string_view key) const;

    /// Replaces all settings.
    void Tell(Settings settings);
    /// The entries since the last call: each event and its fields except `pid`, separated by
    /// spaces. Thread-safe.
    std::vector<std::string> NewNotes();

    /// A file of the sandbox that belongs to this fake's folder, for locks. Beside the fake when
    /// that is not in a sandbox.
    std::filesystem::path StateFile(std::string_view name) const;

    /// Appends one line to the journal. Creates no file in a sandbox that is being removed or
    /// replaced. Any thread.
    void Note(std::string_view event, const std::vector<std::string> &fields = {}) const;

    /// Waits while `condition` holds, but no longer than the sandbox exists, so that no test leaves
    /// a process behind.
    void WaitWhile(const std::function<bool()> &condition) const;

    /// Waits while `hold_file` exists, when it names an existing file; else for `run_ms`
    /// milliseconds, or `fallbackMs` when that is not set. A negative time means no limit.
    void Hold(long fallbackMs) const;

private:
    /// Whether the sandbox is still the one in which this fake was started.
    bool SandboxExists() const;
    void ReadSettings(const std::filesystem::path &file);

    std::string name_;
    std::filesystem::path folder_;
    std::filesystem::path root_; ///< folder of the mark file, empty when there is none
    std::string mark_;           ///< what the mark file said at the start
    Settings settings_;
    mutable std::mutex lock_;
    mutable std::vector<std::string> notes_;
};

} // namespace fake
