// Checks UninstallUI on this machine and writes a report; packaging/acceptance.cmd starts it. It
// works in a copy of the archive: tests of ANSI functions need a short ASCII path. With an argument
// of GoogleTest, it is one of the test programs itself.

#include "testkit/os/os.h"
#include "tests/acceptance/report.h"
#include "tests/acceptance/sandbox.h"

#include <cctype>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <stdexcept>

#include <shellapi.h>

namespace {

namespace fs = std::filesystem;

constexpr const char *kRunningProduct = "The product is running";
constexpr const char *kSecondStart = "A second start";
constexpr const char *kMainJob = "The main job";
constexpr const char *kLoggingOff = "Logging off";

// The program runs at the beginning of each step.
const Step kSteps[] = {
    {"The window opens",
     "Look at the window. Drag it by its upper edge.",
     "It looks as in the image, sharp and in Segoe UI; the reasons may have another order. "
     "It follows the mouse. "
     "The journal has the load of the telemetry library and the start of its companion.",
     "reasons.png"},
    {"A reason and an answer",
     "Choose \"I have other reasons\", click the link, write some words and submit them.",
     "The browser opens a page that does not exist. Thanks and a coupon follow. "
     "The journal has one usage event for each click.",
     "feedback-some-words.png"},
    {kRunningProduct,
     "Press \"Uninstall\", then \"OK\" in the box. A fake of the product is running.",
     "A box asks to close the product. After that the window is as before. "
     "The journal has no start of uninstall.exe.",
     "warning.png"},
    {kSecondStart,
     "Cover the window with another one, press Enter in the console window, and look.",
     "The window comes to the front. There is no second one.",
     nullptr},
    {kMainJob,
     "Press \"Uninstall\" and, when it is complete, \"OK\".",
     "The bar advances to its end, and the buttons are grey meanwhile. The window closes. "
     "The journal has uninstall.exe with /SP- and /VERYSILENT, "
     "and clearKTR.bat with the folder of the product.",
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
    {kLoggingOff,
     "Log off while the window is open. Log on and start acceptance.cmd again: it resumes here.",
     "Windows logs off without asking. The journal has no clearKTR.bat.",
     nullptr}};

bool SameContent(const fs::path &first, const fs::path &second)
{
    return ReadAll(first) == ReadAll(second);
}

// A line that the person types, as UTF-8.
std::string Ask(const std::string &question)
{
    std::cout << question << std::flush;
    HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    DWORD mode = 0;
    std::string line;
    if (::GetConsoleMode(input, &mode) == FALSE) {
        if (!std::getline(std::cin, line)) {
            throw std::runtime_error("the input ended before the last answer");
        }
    } else {
        std::wstring text(1000, L'\0');
        DWORD length = 0;
        if (::ReadConsoleW(input, text.data(), static_cast<DWORD>(text.size()), &length, nullptr) ==
            FALSE) {
            throw std::runtime_error("the console cannot be read");
        }
        text.resize(length);
        line = fs::path(text).u8string();
    }
    return line.substr(0, line.find_first_of("\r\n"));
}

// The first letter in lower case, or 0.
int Letter(const std::string &answer)
{
    return answer.empty() ? 0 : std::tolower(static_cast<unsigned char>(answer.front()));
}

// Asks until the answer begins with y, n or s.
Row AskForResult()
{
    for (;;) {
        const std::string answer = Ask("Was all as expected? y, n or s (skip), then a remark: ");
        const std::size_t space = answer.find(' ');
        const std::string remark =
            space == std::string::npos ? std::string() : Escaped(answer.substr(space + 1));
        switch (Letter(answer)) {
        case 'y':
            return {{}, kPassed, remark};
        case 'n':
            return {{}, kFailed, remark};
        case 's':
            return {{}, kNotShown, remark};
        default:
            break;
        }
    }
}

void Open(const fs::path &page)
{
    ::ShellExecuteW(nullptr, nullptr, page.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

class Acceptance
{
public:
    Acceptance(const fs::path &self, bool attended)
        : self_(self)
        , archive_(self.parent_path())
        , reportFile_(archive_.parent_path() / "report.html")
        , work_(fs::u8path(os::EnvironmentVariable("ProgramData").value_or("C:\\")) /
                "KTR-acceptance")
        , files_(work_ / "files")
        , answers_(work_ / "answers.txt")
        , sandbox_(files_ / "sandbox")
    {
        report_.attended = attended;
        for (const Step &step : kSteps) {
            report_.steps.push_back({step.title, kNotShown, {}});
        }
    }

    // 0 if all passed, 1 if not. Throws if the checks cannot run.
    int Run()
    {
        Show("<h2>The tests run</h2><p>Do not use mouse and keyboard meanwhile.</p>");
        const bool resumes = report_.attended && CanResume();
        if (resumes) {
            std::cout << "The steps resume. To start again, remove " << work_.u8string()
                      << std::endl;
            EndPrograms();
        } else {
            if (!Remove()) {
                throw std::runtime_error(work_.u8string() + " is left and cannot be removed");
            }
            fs::create_directories(work_ / "xml");
            fs::create_directories(work_ / "temp");
            fs::copy(archive_, files_, fs::copy_options::recursive);
            RunTests();
        }
        ReadResults();
        if (report_.attended) {
            GuideThroughSteps(resumes);
        }
        const char *removal = Remove() ? kPassed : kFailed;
        report_.groups.push_back(
            {"the end", {{work_.u8string() + " is removed", removal, {}}}, {}});
        Show({});
        if (report_.attended) {
            Open(reportFile_);
        }
        return report_.Passed() ? 0 : 1;
    }

    // Leaves a report that says why the checks did not run.
    void Fail(const std::string &reason)
    {
        report_.groups.push_back({"acceptance", {{"The checks", kFailed, Escaped(reason)}}, {}});
        Show({});
        Remove();
    }

private:
    // Whether an earlier run of these files was left in the middle of the steps.
    bool CanResume() const
    {
        const Sandbox archived(archive_ / "sandbox");
        if (!fs::exists(answers_) || !SameContent(archived.Program(), sandbox_.Program())) {
            return false;
        }
        for (fs::recursive_directory_iterator entry(archive_), end; entry != end; ++entry) {
            if (entry->path() == archive_ / "sandbox") {
                entry.disable_recursion_pending(); // the steps change it
            } else if (entry->is_regular_file() &&
                       !SameContent(entry->path(),
                                    files_ / entry->path().lexically_relative(archive_))) {
                return false;
            }
        }
        return true;
    }

    void EndPrograms() const
    {
        for (const auto &process : os::RunningProcesses("")) {
            if (os::IsBelow(process.path, work_.u8string())) {
                HANDLE handle = ::OpenProcess(PROCESS_TERMINATE, FALSE, process.id);
                ::TerminateProcess(handle, 1);
                ::CloseHandle(handle);
            }
        }
    }

    // Removes the working folder; false if something of it is left.
    bool Remove() const
    {
        // Any user can put a link there.
        const DWORD attributes = ::GetFileAttributesW(work_.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES &&
            (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
            return false;
        }
        constexpr int kAttempts = 100;
        for (int attempt = 0; attempt < kAttempts && fs::exists(work_); ++attempt) {
            EndPrograms();
            std::error_code busy;
            fs::remove_all(work_, busy);
            if (busy) {
                ::Sleep(100);
            }
        }
        return !fs::exists(work_);
    }

    void Show(const std::string &current)
    {
        report_.current = current;
        Write(report_, reportFile_, archive_ / "report.css");
    }

    void RunTests()
    {
        std::cout << "The tests run for some minutes. Do not use mouse and keyboard meanwhile."
                  << std::endl;
        const fs::path qt = files_ / "qt";
        const auto path = fs::u8path(os::EnvironmentVariable("PATH").value_or("")).wstring();
        ::SetEnvironmentVariableW(L"PATH", (qt.wstring() + L';' + path).c_str());
        const os::ScopedVariable plugins("QT_PLUGIN_PATH", qt.string());
        const os::ScopedVariable modules("QML2_IMPORT_PATH", qt.string());
        const os::ScopedVariable temp("TEMP", (work_ / "temp").string());
        const os::ScopedVariable tmp("TMP", (work_ / "temp").string());
        // Without this, a program that crashes or lacks a DLL shows a dialog and waits.
        const UINT mode = ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
        for (const fs::path &program : UnitPrograms()) {
            RunTestProgram(program, files_);
        }
        ::SetEnvironmentVariableW(L"PATH", path.c_str());
        sandbox_.Prepare(qt);
        RunTestProgram(files_ / self_.filename(), work_);
        ::SetErrorMode(mode);
    }

    std::vector<fs::path> UnitPrograms() const
    {
        std::vector<fs::path> programs;
        std::ifstream list(files_ / "unit-programs.txt");
        for (std::string line; std::getline(list, line);) {
            programs.push_back(files_ / line);
        }
        if (programs.empty()) {
            throw std::runtime_error("files\\unit-programs.txt names no program");
        }
        return programs;
    }

    // Leaves an XML file, what the program printed, and its status.
    void RunTestProgram(fs::path program, const fs::path &folder) const
    {
        std::cout << program.stem().u8string() << std::flush;
        const fs::path result = work_ / "xml" / program.stem();
        const std::string line = '"' + program.make_preferred().u8string() +
                                 "\" --gtest_output=xml:\"" + result.u8string() + ".xml\"";
        const Process process(fs::u8path(line).wstring(), folder, result.wstring() + L".txt");
        constexpr DWORD kDeadline = 1200000;
        const int status = process.Wait(kDeadline);
        std::cout << (status == 0 ? " passed" : " FAILED") << std::endl;
        std::ofstream(result.u8string() + ".status") << status;
    }

    void ReadResults()
    {
        std::vector<fs::path> programs = UnitPrograms();
        programs.insert(programs.begin(), self_);
        for (const fs::path &program : programs) {
            fs::path file = work_ / "xml" / program.stem();
            const std::string xml = ReadAll(file.replace_extension(".xml"));
            const std::string output = ReadAll(file.replace_extension(".txt"));
            const std::string status = ReadAll(file.replace_extension(".status"));
            report_.groups.push_back(ReadGroup(
                program.stem().u8string(), xml, status.empty() ? -1 : std::stoi(status), output));
        }
    }

    void GuideThroughSteps(bool resumes)
    {
        std::size_t done = 0;
        std::ifstream earlier(answers_);
        for (std::string line; std::getline(earlier, line); ++done) {
            const std::size_t tab = line.find('\t');
            report_.steps[done].state = line.substr(0, tab);
            report_.steps[done].detail = line.substr(tab + 1);
        }
        earlier.close();
        std::ofstream record(answers_, std::ios::app);
        ::FlushConsoleInputBuffer(::GetStdHandle(STD_INPUT_HANDLE));
        std::unique_ptr<Process> program;
        for (bool opened = false; done < report_.steps.size(); ++done) {
            Row &row = report_.steps[done];
            const bool isBack = resumes && !opened && row.name == kLoggingOff;
            std::size_t known = isBack ? 0 : ReadAll(sandbox_.Journal()).size();
            if (!isBack && (!program || !program->Runs())) {
                fs::remove(sandbox_.Journal());
                known = 0;
                program = sandbox_.Start();
            }
            std::unique_ptr<Process> product;
            if (row.name == kRunningProduct) {
                product = std::make_unique<Process>(
                    (sandbox_.Program().parent_path() / "KTRUI.exe").wstring(), files_);
            }
            Show(Description(done + 1, kSteps[done], {}));
            if (!opened) {
                Open(reportFile_);
                opened = true;
            }
            std::cout << "\nStep " << done + 1 << " of " << report_.steps.size() << ": " << row.name
                      << " (the page in the browser describes it)\n";
            Row answer = {{}, kNotShown, {}};
            if (isBack ||
                Letter(Ask("Press Enter when you have done it, or s to skip it: ")) != 's') {
                if (row.name == kSecondStart) {
                    sandbox_.Start();
                }
                product.reset();
                // The clean-up starts last, with the lowest priority.
                const bool hasEnded = row.name == kMainJob && program && !program->Runs();
                for (int wait = 0; wait < 100 && hasEnded && !HasCleanUp(); ++wait) {
                    ::Sleep(100);
                }
                const std::string journal = ReadAll(sandbox_.Journal());
                Show(Description(done + 1, kSteps[done], journal.substr(known)));
                answer = AskForResult();
            }
            row.state = answer.state;
            row.detail = answer.detail;
            if (!(record << row.state << '\t' << row.detail << std::endl)) {
                throw std::runtime_error(answers_.u8string() +
                                         " cannot be written; use the rights of the first run");
            }
        }
    }

    bool HasCleanUp() const
    {
        return ReadAll(sandbox_.Journal()).find("clearKTR.bat") != std::string::npos;
    }

    fs::path self_;
    fs::path archive_;    // the folder "files" that was unpacked
    fs::path reportFile_; // beside that folder
    fs::path work_;
    fs::path files_; // the copy of that folder
    fs::path answers_;
    Sandbox sandbox_;
    Report report_;
};

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
    ::CreateMutexW(nullptr, FALSE, L"KTR-acceptance");
    if (::GetLastError() == ERROR_ALREADY_EXISTS) {
        std::cerr << "The checks run already." << std::endl;
        return 2;
    }
    // Without this, Windows reports a scale of 100 %.
    ::SetProcessDPIAware();
    Acceptance acceptance(os::ExecutablePath(), attended);
    try {
        return acceptance.Run();
    } catch (const std::exception &failure) {
        std::cerr << "The checks could not run: " << failure.what() << std::endl;
        try {
            acceptance.Fail(failure.what());
        } catch (const std::exception &alsoFailed) {
            std::cerr << alsoFailed.what() << std::endl;
        }
        return 2;
    }
}
