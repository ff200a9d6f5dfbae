// Any command line behind a folder with a few programs, and the one that the program composes.

#include "platform/posix/command_line.h"
#include "app/cleanup_script.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"
#include "tests/unit/platform/support/scratch_folder.h"

#include <QStringList>

#include <algorithm>

namespace {

using platform::CommandLine;
using platform::SplitCommandLine;

class Programs
{
public:
    Programs()
    {
        for (const char *name : {"run", "run me", "run me now"}) {
            contract::WriteFile(folder_ / name, "");
        }
    }
    std::string Path(const std::string &name) const
    {
        return (folder_.Path() / "").string() + name;
    }
    /// The longest program at the beginning that ends at a space; empty when there is none.
    static std::string At(const std::string &text)
    {
        for (const std::string name : {"run me now", "run me", "run"}) {
            const char next = text.size() > name.size() ? text[name.size()] : ' ';
            if (text.rfind(name, 0) == 0 && next == ' ') {
                return name;
            }
        }
        return {};
    }

private:
    contract::ScratchFolder folder_;
};

// All characters that are neither quotation marks nor spaces outside of them, and how often
// something begins there.
std::pair<std::string, std::size_t> Kept(const std::string &text)
{
    std::string kept;
    std::size_t count = 0;
    bool quoted = false;
    bool separate = true;
    for (const char character : text) {
        const bool space = !quoted && character == ' ';
        count += separate && !space ? 1 : 0;
        separate = space;
        quoted = quoted != (character == '"');
        kept += space || character == '"' ? std::string() : std::string(1, character);
    }
    return {kept, count};
}

void CheckSplit(const Programs &programs, const std::string &text)
{
    const CommandLine parts = SplitCommandLine(programs.Path(text));
    const std::string program = Programs::At(text);
    Check(parts.empty() == program.empty(), "something is started when there is a program");
    if (parts.empty()) {
        return;
    }
    Check(parts.front() == programs.Path(program), "the longest name that is a program");
    std::string joined;
    std::string quoted = parts.front();
    std::for_each(parts.begin() + 1, parts.end(), [&](const std::string &argument) {
        joined += argument;
        quoted += " \"" + argument + '"';
    });
    const auto [kept, count] = Kept(text.substr(program.size()));
    Check(joined == kept && parts.size() == count + 1, "no argument more or less, nothing lost");
    Check(SplitCommandLine(quoted) == parts, "quoted, every argument stays as it is");
}

void CheckCleanup(const Programs &programs, const QString &folders)
{
    QString parent;
    QString programDir;
    for (const QString &folder : folders.split(QLatin1Char('/'))) {
        if (!folder.isEmpty() && folder != QLatin1String(".") && folder != QLatin1String("..")) {
            parent = programDir;
            programDir += QLatin1Char('/') + folder;
        }
    }
    if (programDir.isEmpty()) {
        return;
    }
    Check(LocateCleanupScript(programDir).source == programDir + QStringLiteral("/clearKTR.bat"),
          "the script lies beside the program");
    for (const char *staged : {"run", "run me now"}) {
        const std::string script = programs.Path(staged);
        const QString command =
            CleanupCommand({QString(), QString::fromStdString(script)}, programDir);
        const std::string target = parent.isEmpty() ? "/" : parent.toStdString();
        if (target.find('"') == std::string::npos) {
            Check(SplitCommandLine(command.toStdString()) == CommandLine{script, target},
                  "the script gets the folder above the program's");
        }
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Programs programs;
    // A command line ends at its first zero.
    std::string text(Whole(data, size));
    text.resize(std::min(text.find('\0'), text.size()));
    CheckCleanup(programs, Text(text));
    // One name only for each program.
    std::replace(text.begin(), text.end(), '/', '_');
    CheckSplit(programs, text);
    return 0;
}
