// Checks UninstallUI on this machine and writes a report: packaging/acceptance.cmd calls it. It
// runs the test programs from a copy in a folder with a short ASCII path, which tests of ANSI
// functions need, and removes that folder at the end. With an argument of GoogleTest it is a test
// program itself.

#include "testkit/os/os.h"
#include "tests/acceptance/process.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <sstream>

#include <shellapi.h>

namespace {

namespace fs = std::filesystem;

struct Row
{
    std::string name;
    std::string state; // passed, failed, not shown
    std::string detail;
};
struct Group
{
    std::string name;
    std::vector<Row> rows;
};

struct Step
{
    const char *title;
    const char *todo;
    const char *expected;
    const char *image;
};
// The program runs at each step, and is started if it does not.
const Step kSteps[] = {
    {"The window opens",
     "Look at the window. Drag it by its upper edge.",
     "It looks as in the image, sharp and in Segoe UI; the reasons may have another order. It "
     "follows "
     "the mouse. The journal has the load of the telemetry library and the start of its companion.",
     "reasons.png"},
    {"A reason and an answer",
     "Choose \"Other reasons\", click the link, write some words and submit them.",
     "The browser opens a page that does not exist. Thanks and a coupon follow. The journal has "
     "one "
     "usage event for each click.",
     "feedback-some-words.png"},
    {"The product is running",
     "Press \"Uninstall\", then \"OK\" in the box. A fake of the product is running.",
     "A box asks to close the product. After that the window is as before. The journal has no "
     "start "
     "of uninstall.exe.",
     "warning.png"},
    {"A second start",
     "Cover the window with another one, press Enter here, and look at the window.",
     "The window comes to the front. There is no second one.",
     nullptr},
    {"The main job",
     "Press \"Uninstall\" and, when it is complete, \"OK\".",
     "The bar climbs to its end and the buttons are grey meanwhile. The window closes. The journal "
     "has uninstall.exe with /SP- and /VERYSILENT, and clearKTR.bat with the folder of the "
     "product.",
     "complete.png"},
    {"Cancel", "Press \"Cancel\".", "The window closes. The journal has no clearKTR.bat.", nullptr},
    {"The close button",
     "Close the window by its own button at the upper right.",
     "The window closes. The journal has no clearKTR.bat.",
     nullptr},
    {"Closing from outside",
     "Close the window from the taskbar.",
     "The window closes. The journal has no clearKTR.bat.",
     nullptr},
    {"Logging off",
     "Log off while the window is open. Log on and start acceptance.cmd again: it goes on here.",
     "Windows logs off without asking. The journal has no clearKTR.bat.",
     nullptr}};

std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char letter : text) {
        escaped += letter == '<' ? "&lt;" : letter == '&' ? "&amp;" : std::string(1, letter);
    }
    return escaped;
}

std::string ReadAll(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The text between `begin` and `end`, searched from `*at` on; moves `*at` to `end`. Empty if there
// is none.
std::string
Between(const std::string &text, std::string_view begin, std::string_view end, std::size_t *at)
{
    const std::size_t from = text.find(begin, *at);
    const std::size_t to = from == std::string::npos ? from : text.find(end, from + begin.size());
    *at = to;
    return to == std::string::npos ? std::string()
                                   : text.substr(from + begin.size(), to - from - begin.size());
}

std::string Attribute(const std::string &element, const std::string &name)
{
    std::size_t at = 0;
    return Between(element, ' ' + name + "=\"", "\"", &at);
}

std::string WineVersion()
{
    using Version = const char *CDECL();
    auto *const entry = ::GetProcAddress(::GetModuleHandleA("ntdll"), "wine_get_version");
    return entry == nullptr ? std::string()
                            : reinterpret_cast<Version *>(reinterpret_cast<void *>(entry))();
}

std::string WindowsVersion()
{
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    auto *const entry = ::GetProcAddress(::GetModuleHandleA("ntdll"), "RtlGetVersion");
    using GetVersion = LONG WINAPI(OSVERSIONINFOW *);
    reinterpret_cast<GetVersion *>(reinterpret_cast<void *>(entry))(&version);
    DWORD revision = 0;
    DWORD size = sizeof revision;
    const char *key = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    ::RegGetValueA(HKEY_LOCAL_MACHINE, key, "UBR", RRF_RT_REG_DWORD, nullptr, &revision, &size);
    const std::string wine = WineVersion();
    return std::to_string(version.dwMajorVersion) + '.' + std::to_string(version.dwMinorVersion) +
           ", build " + std::to_string(version.dwBuildNumber) + '.' + std::to_string(revision) +
           (wine.empty() ? "" : ", as Wine " + wine + " shows it");
}

bool HasFont(const wchar_t *name)
{
    bool found = false;
    LOGFONTW font = {};
    font.lfCharSet = DEFAULT_CHARSET;
    std::wstring(name).copy(font.lfFaceName, LF_FACESIZE - 1);
    HDC screen = ::GetDC(nullptr);
    ::EnumFontFamiliesExW(
        screen,
        &font,
        [](const LOGFONTW *, const TEXTMETRICW *, DWORD, LPARAM result) {
            *reinterpret_cast<bool *>(result) = true;
            return 0;
        },
        reinterpret_cast<LPARAM>(&found),
        0);
    ::ReleaseDC(nullptr, screen);
    return found;
}

int Scale()
{
    HDC screen = ::GetDC(nullptr);
    const int scale = ::GetDeviceCaps(screen, LOGPIXELSX) * 100 / 96;
    ::ReleaseDC(nullptr, screen);
    return scale;
}

// The visible window of a process, or null.
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

class Acceptance
{
public:
    Acceptance(const fs::path &self, bool attended)
        : self_(self)
        , report_(self.parent_path().parent_path() / "report.html")
        , attended_(attended)
    {
        const auto data = os::EnvironmentVariable("ProgramData");
        work_ = fs::u8path(data.value_or("C:\\")) / "KTR-acceptance";
        sandbox_ = work_ / "files" / "sandbox";
    }

    // 0 if nothing failed, 1 if something did.
    int Run()
    {
        Copy();
        RunPrograms();
        ReadResults();
        MeasureStart();
        if (attended_) {
            AskThePerson();
        }
        const bool passed = Count("failed") == 0;
        Write(nullptr, {});
        if (attended_) {
            ::ShellExecuteW(nullptr, nullptr, report_.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        }
        Remove();
        return passed ? 0 : 1;
    }

private:
    fs::path Answers() const
    {
        return work_ / "answers.txt";
    }
    fs::path Program() const
    {
        return sandbox_ / "Dravik" / "bin" / "UninstallUI.exe";
    }

    // Copies the files, unless this run continues after the step "Logging off".
    void Copy()
    {
        resumed_ = attended_ && fs::exists(Answers());
        if (resumed_) {
            return;
        }
        Remove();
        fs::create_directories(work_ / "xml");
        fs::create_directories(work_ / "temp");
        fs::copy(self_.parent_path(), work_ / "files", fs::copy_options::recursive);
        for (const char *folder : {"state", "tmp", "run", "home"}) {
            fs::create_directories(sandbox_ / folder);
        }
        std::ofstream(Program().parent_path() / "tasklist.exe.txt")
            << "root=" << sandbox_.u8string() << '\n';
    }

    void Remove()
    {
        for (int attempt = 0; attempt < 100 && fs::exists(work_); ++attempt) {
            for (const auto &process : os::RunningProcesses("")) {
                if (os::IsBelow(process.path, work_.u8string())) {
                    HANDLE handle = ::OpenProcess(PROCESS_TERMINATE, FALSE, process.id);
                    ::TerminateProcess(handle, 1);
                    ::CloseHandle(handle);
                }
            }
            std::error_code busy;
            fs::remove_all(work_, busy);
            if (busy) {
                ::Sleep(100);
            }
        }
    }

    void RunPrograms()
    {
        if (resumed_) {
            return;
        }
        const fs::path files = work_ / "files";
        const std::string path = os::EnvironmentVariable("PATH").value_or("");
        ::SetEnvironmentVariableW(
            L"PATH", ((files / "qt").wstring() + L';' + fs::u8path(path).wstring()).c_str());
        const os::ScopedVariable plugins("QT_PLUGIN_PATH", (files / "qt").string());
        const os::ScopedVariable modules("QML2_IMPORT_PATH", (files / "qt").string());
        const os::ScopedVariable temp("TEMP", (work_ / "temp").string());
        const os::ScopedVariable tmp("TMP", (work_ / "temp").string());
        std::ifstream list(files / "unit-programs.txt");
        for (std::string line; std::getline(list, line);) {
            const std::string program = line.substr(0, line.find('|'));
            RunProgram(files / program, line.substr(program.size() + 1), files);
        }
        RunProgram(self_, {}, work_);
        for (const auto &entry : fs::directory_iterator(files / "qt")) {
            fs::rename(entry, Program().parent_path() / entry.path().filename());
        }
    }

    void RunProgram(const fs::path &program, const std::string &filter, const fs::path &folder)
    {
        std::cout << program.stem().u8string() << std::flush;
        const fs::path xml = work_ / "xml" / program.stem();
        constexpr DWORD kDeadline = 1200000;
        const Process process(L'"' + program.wstring() + L"\" --gtest_output=xml:\"" +
                                  xml.wstring() + L".xml\" --gtest_filter=" +
                                  fs::u8path(filter.empty() ? "*" : filter).wstring(),
                              folder,
                              xml.wstring() + L".txt");
        const int status = process.Wait(kDeadline);
        std::cout << (status == 0 ? " passed" : " FAILED") << std::endl;
        std::ofstream(fs::path(xml).replace_extension(".status")) << status << ' ' << filter;
    }

    void ReadResults()
    {
        for (const auto &entry : fs::directory_iterator(work_ / "xml")) {
            if (entry.path().extension() != ".status") {
                continue;
            }
            Group group = {entry.path().stem().u8string(), {}};
            const std::string xml = ReadAll(fs::path(entry.path()).replace_extension(".xml"));
            const std::string element = "<testcase ";
            for (std::size_t at = xml.find(element), next = at; at != std::string::npos;
                 at = next) {
                next = xml.find(element, at + 1);
                const std::string test = xml.substr(at, next - at);
                // The text of GoogleTest is escaped.
                std::size_t inside = test.find("<failure message=\"");
                const bool failed = inside != std::string::npos;
                inside = failed ? inside : test.find("<skipped message=\"");
                const bool skipped = !failed && inside != std::string::npos;
                group.rows.push_back(
                    {Attribute(test, "classname") + '.' + Attribute(test, "name"),
                     failed    ? "failed"
                     : skipped ? "not shown"
                               : "passed",
                     failed || skipped ? Between(test, "message=\"", "\"", &inside) : ""});
            }
            std::string filter;
            int status = -1;
            std::ifstream(entry.path()) >> status >> filter;
            const auto failed = std::count_if(group.rows.begin(), group.rows.end(), IsFailed);
            if (group.rows.empty() || (status != 0 && failed == 0)) {
                group.rows.push_back(
                    {"The program itself",
                     "failed",
                     "It ended with status " + std::to_string(status) + ".\n" +
                         Escaped(ReadAll(fs::path(entry.path()).replace_extension(".txt")))});
            }
            std::istringstream left(filter.empty() ? filter : filter.substr(1));
            for (std::string name; std::getline(left, name, ':');) {
                group.rows.push_back({name, "not shown", "Left out on Windows."});
            }
            groups_.push_back(group);
        }
    }

    static bool IsFailed(const Row &row)
    {
        return row.state == "failed";
    }

    std::unique_ptr<Process> Start() const
    {
        const os::ScopedVariable temp("TEMP", (sandbox_ / "tmp").string());
        const os::ScopedVariable tmp("TMP", (sandbox_ / "tmp").string());
        const os::ScopedVariable note("KTR_NOTE", (sandbox_ / "tools" / "note.exe").string());
        auto started = std::make_unique<Process>(L'"' + Program().wstring() + L'"', sandbox_);
        for (int wait = 0; wait < 12000 && started->Runs() && WindowOf(*started) == nullptr;
             ++wait) {
            ::Sleep(5);
        }
        return started;
    }

    // Three starts to the window, the first of them cold; closed from outside.
    void MeasureStart()
    {
        Group group = {"start", {}};
        // Kept for the step "Logging off", which continues after another login.
        const std::string journal = ReadAll(Journal());
        fs::remove(Journal());
        for (const char *name : {"First start", "Second start", "Third start"}) {
            const ULONGLONG began = ::GetTickCount64();
            const auto program = Start();
            const ULONGLONG took = ::GetTickCount64() - began;
            HWND window = WindowOf(*program);
            ::PostMessageW(window, WM_CLOSE, 0, 0);
            const int status = program->Wait(60000);
            const bool passed = window != nullptr && status == 0 &&
                                ReadAll(Journal()).find("clearKTR.bat") == std::string::npos;
            group.rows.push_back(
                {name,
                 passed ? "passed" : "failed",
                 "window after " + std::to_string(took) + " ms, status " + std::to_string(status)});
        }
        groups_.push_back(group);
        std::ofstream(Journal(), std::ios::binary) << journal;
    }

    fs::path Journal() const
    {
        return sandbox_ / "journal.log";
    }

    static std::string Ask(const std::string &question)
    {
        std::cout << question << std::flush;
        std::string answer;
        std::getline(std::cin, answer);
        return answer;
    }

    void AskThePerson()
    {
        std::ifstream earlier(Answers());
        for (std::string line; std::getline(earlier, line);) {
            const std::size_t first = line.find('\t');
            answers_.push_back({"", line.substr(0, first), line.substr(first + 1)});
        }
        earlier.close();
        std::ofstream(Answers(), std::ios::app);
        std::unique_ptr<Process> program;
        bool opened = false;
        while (answers_.size() < std::size(kSteps)) {
            const Step &step = kSteps[answers_.size()];
            const std::string title = step.title;
            const bool logOff = title == "Logging off";
            const bool back = logOff && resumed_;
            std::unique_ptr<Process> product;
            std::size_t known = back ? 0 : ReadAll(Journal()).size();
            if (!back && (!program || !program->Runs())) {
                fs::remove(Journal());
                known = 0;
                program = Start();
            }
            if (title == "The product is running") {
                product = std::make_unique<Process>(
                    L'"' + (Program().parent_path() / "KTRUI.exe").wstring() + L'"', sandbox_);
            }
            Write(&step, {});
            if (!opened) {
                ::ShellExecuteW(nullptr, nullptr, report_.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
                opened = true;
            }
            std::cout << "\nStep " << answers_.size() + 1 << " of " << std::size(kSteps) << ": "
                      << step.title << " (the page in the browser describes it)\n";
            if (!back && Ask("Press Enter when you have done it, or s to skip it: ") == "s") {
                Answer("not shown", {});
                continue;
            }
            if (title == "A second start") {
                Start();
            }
            product.reset();
            Write(&step, ReadAll(Journal()).substr(known));
            const std::string answer =
                Ask("Was all as expected? y, n or s (skip), then a remark: ");
            const char first = answer.empty() ? 's' : answer.front();
            Answer(first == 'y'   ? "passed"
                   : first == 'n' ? "failed"
                                  : "not shown",
                   answer.size() > 2 ? answer.substr(2) : std::string());
        }
    }
    void Answer(const std::string &state, const std::string &remark)
    {
        answers_.push_back({"", state, Escaped(remark)});
        std::ofstream(Answers(), std::ios::app) << state << '\t' << Escaped(remark) << '\n';
    }

    int Count(const std::string &state) const
    {
        std::ptrdiff_t count = 0;
        const auto matches = [&state](const Row &row) {
            return row.state == state;
        };
        for (const Group &group : groups_) {
            count += std::count_if(group.rows.begin(), group.rows.end(), matches);
        }
        count += std::count_if(answers_.begin(), answers_.end(), matches);
        const auto open = static_cast<std::ptrdiff_t>(std::size(kSteps) - answers_.size());
        return static_cast<int>(count + (state == "not shown" ? open : 0));
    }

    void Write(const Step *now, const std::string &journal) const;

    fs::path self_;
    fs::path report_;
    fs::path work_;
    fs::path sandbox_;
    bool attended_;
    bool resumed_ = false;
    std::vector<Group> groups_;
    std::vector<Row> answers_;
};

const char *const kHead = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>UninstallUI on this machine</title>
<meta name="color-scheme" content="light dark"><style>
:root { --page: #f4f5f7; --card: #fff; --text: #1c2127; --soft: #59636e; --line: #dde1e6;
  --good: #14713a; --bad: #b3261e; --none: #6b5900; --blue: #1f5fd8 }
@media (prefers-color-scheme: dark) { :root { --page: #16191d; --card: #1f2429; --text: #e8eaed;
  --soft: #a3adb8; --line: #363d45; --good: #6fd695; --bad: #ff8f86; --none: #e3c55b;
  --blue: #8ab4ff } }
body { margin: 0; background: var(--page); color: var(--text); font: 15px/1.5 "Segoe UI",
  "Open Sans", sans-serif }
main { max-width: 60rem; margin: 2rem auto; padding: 0 1.5rem }
section { background: var(--card); border: 1px solid var(--line); border-radius: 10px;
  padding: 1.25rem 1.5rem; margin: 1rem 0 }
h1 { font-size: 1.7rem; margin: 0; line-height: 1.3 } h1::first-letter { text-transform: uppercase } h2 { font-size: 1.15rem; margin: 0 0 .6rem }
p { margin: .4rem 0 } .soft { color: var(--soft) }
table { border-collapse: collapse; width: 100% }
td, th { text-align: left; vertical-align: top; font-weight: normal; padding: .35rem .9rem .35rem 0;
  border-top: 1px solid var(--line); overflow-wrap: anywhere }
tr:first-child > * { border-top: 0 } td:first-child, th { width: 7.5rem; white-space: nowrap }
th { color: var(--soft) }
summary { cursor: pointer; padding: .3rem 0 } details > table { margin: .3rem 0 .8rem 1rem;
  width: calc(100% - 1rem) }
summary b { display: inline-block; min-width: 19rem; font-weight: 600 }
pre { margin: 0; white-space: pre-wrap; font: 13px/1.45 Consolas, monospace }
.passed { color: var(--good) } .failed { color: var(--bad); font-weight: 600 }
.not { color: var(--none) } .counts span { margin-right: 1.5rem; font-size: 1.05rem }
.now { border: 2px solid var(--blue) } img { max-width: 100%; border: 1px solid var(--line) }
</style>)";

std::string Shown(const std::string &state)
{
    return "<span class=\"" + state + "\">" + state + "</span>";
}

std::string Line(const Row &row)
{
    return "<tr><td>" + Shown(row.state) + "</td><td>" + row.name +
           (row.detail.empty() ? "" : "<pre class=\"soft\">" + row.detail + "</pre>") +
           "</td></tr>\n";
}

std::string Fact(const std::string &name, const std::string &value)
{
    return "<tr><th>" + name + "</th><td>" + Escaped(value) + "</td></tr>\n";
}

std::string Facts()
{
    SYSTEMTIME time = {};
    ::GetSystemTime(&time);
    char date[64] = {};
    std::snprintf(date,
                  sizeof date,
                  "%04d-%02d-%02d %02d:%02d UTC",
                  time.wYear,
                  time.wMonth,
                  time.wDay,
                  time.wHour,
                  time.wMinute);
    return "<section><h2>This machine</h2><table>" + Fact("Windows", WindowsVersion()) +
           Fact("Code page",
                std::to_string(::GetACP()) + " (ANSI), " + std::to_string(::GetOEMCP()) +
                    " (OEM)") +
           Fact("Scale", std::to_string(Scale()) + " %") +
           Fact("Fonts",
                std::string("Segoe UI ") + (HasFont(L"Segoe UI") ? "found" : "missing") +
                    ", Microsoft YaHei " + (HasFont(L"Microsoft YaHei") ? "found" : "missing")) +
           Fact("Date", date) + "</table></section>\n";
}

void Acceptance::Write(const Step *now, const std::string &journal) const
{
    const int failed = Count("failed");
    const int hidden = Count("not shown");
    std::ofstream page(report_, std::ios::binary);
    page << kHead << (now != nullptr ? "<meta http-equiv=\"refresh\" content=\"2\">" : "")
         << "</head><body><main>\n<section><h1>"
         << (failed != 0      ? Shown("failed")
             : now != nullptr ? "In progress"
                              : Shown("passed"))
         << (failed == 0 && hidden != 0 && now == nullptr ? ", as far as shown" : "")
         << "</h1><p class=\"soft\">UninstallUI " << KTR_VERSION << " on this machine</p>"
         << "<p class=\"counts\"><span class=\"passed\">" << Count("passed")
         << " passed</span><span class=\"" << (failed != 0 ? "failed" : "soft") << "\">" << failed
         << " failed</span><span class=\"not\">" << hidden << " not shown</span></p>"
         << (WineVersion().empty() ? ""
                                   : "<p>This run was under Wine. It does not replace a run on "
                                     "Windows.</p>")
         << "</section>\n";
    if (now != nullptr) {
        page << "<section class=\"now\"><h2>Step " << answers_.size() + 1 << ": " << now->title
             << "</h2><table>" << Fact("Do", now->todo) << Fact("Expect", now->expected)
             << Fact("Then", "Answer in the console window.") << "</table>";
        if (now->image != nullptr) {
            page << "<p><img src=\"files/images/" << now->image << "\" alt=\"\"></p>";
        }
        page << (journal.empty() ? "" : "<h2>Journal</h2><pre>" + Escaped(journal) + "</pre>")
             << "</section>\n";
    }
    page << Facts() << "<section><h2>Tests</h2>\n";
    for (const Group &group : groups_) {
        const auto bad = std::count_if(group.rows.begin(), group.rows.end(), IsFailed);
        const auto left = std::count_if(group.rows.begin(), group.rows.end(), [](const Row &row) {
            return row.state == "not shown";
        });
        page << "<details" << (bad != 0 || group.name == "start" ? " open" : "") << "><summary><b>"
             << group.name << "</b> " << static_cast<std::ptrdiff_t>(group.rows.size()) - bad - left
             << " passed";
        page << (bad != 0 ? ", <span class=\"failed\">" + std::to_string(bad) + " failed</span>"
                          : "")
             << (left != 0 ? ", <span class=\"not\">" + std::to_string(left) + " not shown</span>"
                           : "")
             << "</summary><table>\n";
        for (const char *state : {"failed", "not shown", "passed"}) {
            for (const Row &row : group.rows) {
                page << (row.state == state ? Line(row) : std::string());
            }
        }
        page << "</table></details>\n";
    }
    page << "</section>\n<section><h2>Seen by a person</h2><table>\n";
    for (std::size_t step = 0; step < std::size(kSteps); ++step) {
        const bool answered = step < answers_.size();
        page << Line({kSteps[step].title,
                      answered ? answers_[step].state : "not shown",
                      answered ? answers_[step].detail : ""});
    }
    page << "</table></section>\n<section><h2>Results as XML</h2>\n";
    for (const auto &file : fs::directory_iterator(work_ / "xml")) {
        if (file.path().extension() == ".xml") {
            page << "<details><summary>" << file.path().filename().u8string() << "</summary><pre>"
                 << Escaped(ReadAll(file.path())) << "</pre></details>\n";
        }
    }
    page << "</section></main></body></html>\n";
}

} // namespace

int main(int argc, char **argv)
{
    const auto arguments = os::Arguments(argc, argv);
    if (!arguments.empty() && arguments.front().rfind("--gtest", 0) == 0) {
        testing::InitGoogleTest(&argc, argv);
        return RUN_ALL_TESTS();
    }
    const bool attended = arguments.empty();
    if (!attended && (arguments.size() != 1 || arguments.front() != "/unattended")) {
        std::cerr << "Usage: acceptance.cmd [/unattended]" << std::endl;
        return 2;
    }
    ::SetProcessDPIAware();
    try {
        return Acceptance(os::ExecutablePath(), attended).Run();
    } catch (const std::exception &failure) {
        std::cerr << "The checks could not run: " << failure.what() << std::endl;
        return 2;
    }
}
