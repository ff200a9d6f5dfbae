#include "tests/acceptance/sandbox.h"

#include "testkit/os/os.h"

#include <fstream>

namespace fs = std::filesystem;

Sandbox::Sandbox(fs::path folder)
    : folder_(std::move(folder))
{
}

fs::path Sandbox::Program() const
{
    return folder_ / "Dravik" / "bin" / "UninstallUI.exe";
}

fs::path Sandbox::Journal() const
{
    return folder_ / "journal.log";
}

void Sandbox::Prepare(const fs::path &qt) const
{
    for (const char *folder : {"state", "tmp", "run", "home"}) {
        fs::create_directories(folder_ / folder);
    }
    const fs::path bin = Program().parent_path();
    for (const auto &entry : fs::directory_iterator(qt)) {
        fs::copy(entry.path(), bin / entry.path().filename(), fs::copy_options::recursive);
    }
    std::ofstream(bin / "tasklist.exe.txt") << "root=" << folder_.u8string() << '\n';
}

std::unique_ptr<Process> Sandbox::Start() const
{
    const os::ScopedVariable temp("TEMP", (folder_ / "tmp").string());
    const os::ScopedVariable tmp("TMP", (folder_ / "tmp").string());
    const os::ScopedVariable note("KTR_NOTE", (folder_ / "tools" / "note.exe").string());
    auto started = std::make_unique<Process>(L'"' + Program().wstring() + L'"', folder_);
    constexpr int kPolls = 12000;
    for (int poll = 0; poll < kPolls && started->Runs() && WindowOf(*started) == nullptr; ++poll) {
        ::Sleep(5);
    }
    return started;
}

HWND WindowOf(const Process &process)
{
    std::pair<DWORD, HWND> search = {process.Id(), nullptr};
    const auto compare = [](HWND window, LPARAM data) {
        auto *const wanted = reinterpret_cast<std::pair<DWORD, HWND> *>(data);
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (owner == wanted->first && ::IsWindowVisible(window) != FALSE) {
            wanted->second = window;
        }
        return TRUE;
    };
    ::EnumWindows(compare, reinterpret_cast<LPARAM>(&search));
    return search.second;
}
