// The clean-up script as this system runs it: real calls, and everything around compared before and
// after. The working folder of this program is the one to work in; files/clearKTR.bat lies there.

#include "tests/acceptance/machine.h"
#include "tests/acceptance/process.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>

#include <winioctl.h>

namespace {

namespace fs = std::filesystem;

constexpr int kGone = 0;
constexpr int kRefused = 2;
constexpr int kStillRunning = 3;
constexpr int kLeft = 4;

using Tree = std::map<std::wstring, std::wstring>;

bool IsWine()
{
    static const bool wine = !WineVersion().empty();
    return wine;
}

// With this prefix, paths may be longer than 260 characters. Only for functions of Windows: those
// of the C run-time, and so std::filesystem, take the question mark for a wildcard.
std::wstring Long(const fs::path &path)
{
    return L"\\\\?\\" + path.wstring();
}

void CreateFolders(const fs::path &folder)
{
    if (folder.has_relative_path()) {
        CreateFolders(folder.parent_path());
        ::CreateDirectoryW(Long(folder).c_str(), nullptr);
    }
}

// Everything below a folder: attributes, size and time of change. It enters no link.
void Look(const std::wstring &folder, Tree *tree)
{
    WIN32_FIND_DATAW found = {};
    HANDLE search = ::FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..") {
            continue;
        }
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        std::wstring &facts = (*tree)[folder + L'\\' + name];
        facts = std::to_wstring(found.dwFileAttributes);
        if (isFolder && !isLink) {
            Look(folder + L'\\' + name, tree);
        } else if (!isLink) {
            facts += L' ' + std::to_wstring(found.nFileSizeLow) + L' ' +
                     std::to_wstring(found.ftLastWriteTime.dwHighDateTime) + L' ' +
                     std::to_wstring(found.ftLastWriteTime.dwLowDateTime);
        }
    } while (::FindNextFileW(search, &found) != FALSE);
    ::FindClose(search);
}

// Wine can neither create nor remove links, but shows those of the Linux system. So this runs a
// Linux command with two paths, and waits until `path` exists or is gone.
void RunUnderWine(const std::string &command,
                  const fs::path &path,
                  const fs::path &other,
                  bool there)
{
    using UnixName = char *CDECL(const wchar_t *);
    auto *const entry = ::GetProcAddress(::GetModuleHandleA("kernel32"), "wine_get_unix_file_name");
    auto *const unixName = reinterpret_cast<UnixName *>(reinterpret_cast<void *>(entry));
    const std::string line = R"("\\?\unix\bin\)" + command.substr(0, 2) + '"' + command.substr(2) +
                             " \"" + unixName(other.c_str()) + "\" \"" +
                             unixName(path.parent_path().c_str()) + '/' +
                             path.filename().u8string() + '"';
    const Process process(fs::u8path(line).wstring(), fs::current_path());
    constexpr int kPolls = 3000;
    for (int poll = 0; poll < kPolls; ++poll) {
        if ((::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) == there) {
            return;
        }
        ::Sleep(10);
    }
}

bool IsLink(const fs::path &path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// No other process may change or remove it while it is open.
HANDLE Open(const fs::path &path, DWORD access = GENERIC_READ, DWORD flags = 0)
{
    flags |= FILE_FLAG_BACKUP_SEMANTICS;
    return ::CreateFileW(
        path.c_str(), access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, flags, nullptr);
}

// A junction: a mount point whose target is a folder. `target` is in the system's own form.
bool MakeJunction(const fs::path &link, const std::wstring &target)
{
    struct Data
    {
        DWORD tag;
        WORD length;
        WORD reserved;
        WORD nameOffset;
        WORD nameLength;
        WORD shownOffset;
        WORD shownLength;
        wchar_t names[1000];
    };
    Data data = {};
    const auto bytes = static_cast<WORD>(target.size() * sizeof(wchar_t));
    constexpr WORD kHead = 4 * sizeof(WORD);
    data.tag = IO_REPARSE_TAG_MOUNT_POINT;
    data.nameLength = bytes;
    data.shownOffset = static_cast<WORD>(bytes + sizeof(wchar_t));
    data.length = static_cast<WORD>(kHead + data.shownOffset + sizeof(wchar_t));
    target.copy(data.names, target.size());
    fs::create_directory(link);
    HANDLE folder = Open(link, GENERIC_WRITE, FILE_FLAG_OPEN_REPARSE_POINT);
    DWORD size = static_cast<DWORD>(kHead + data.length);
    const BOOL done =
        ::DeviceIoControl(folder, FSCTL_SET_REPARSE_POINT, &data, size, nullptr, 0, &size, nullptr);
    ::CloseHandle(folder);
    return done != FALSE;
}

// A product's folder, a copy of the script, and things around them that have to stay.
class CleanUp : public testing::Test
{
protected:
    CleanUp()
        : root_(fs::current_path() / "cleanup" /
                testing::UnitTest::GetInstance()->current_test_info()->name())
    {
        Lay("Dravik");
    }
    ~CleanUp() override
    {
        if (IsWine()) {
            RunUnderWine("rm -rf", root_, root_, false);
            return;
        }
        // Not remove_all, which enters junctions. What lies in a folder comes behind it.
        const Tree tree = Everything();
        for (auto entry = tree.rbegin(); entry != tree.rend(); ++entry) {
            ::SetFileAttributesW(entry->first.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (::DeleteFileW(entry->first.c_str()) == FALSE) {
                ::RemoveDirectoryW(entry->first.c_str());
            }
        }
        ::RemoveDirectoryW(root_.c_str());
    }

    void Lay(const fs::path &name)
    {
        product_ = root_ / "Program Files" / "Torvan" / name;
        for (const char *file : {"bin\\UninstallUI.exe",
                                 "bin\\clearKTR.bat",
                                 "bin\\Qt5Core.dll",
                                 "bin\\translations\\ktr_English.qm",
                                 "res\\install_box.ico",
                                 "left over.txt"}) {
            Write(product_ / file);
        }
        for (const char *file : {"keep.txt",
                                 "outside\\keep.txt",
                                 "outside\\below\\keep.txt",
                                 "Program Files\\Torvan\\keep.txt",
                                 "Program Files\\Torvan\\Dravik2\\bin\\UninstallUI.exe",
                                 "temp\\other.tmp"}) {
            Write(root_ / file);
        }
        Write(root_ / "temp" / "clearKTR.bat");
    }

    void Write(const fs::path &path) const
    {
        CreateFolders(path.parent_path());
        HANDLE file =
            ::CreateFileW(Long(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        const std::string content = path.extension() == ".bat" ? script_ : "content";
        DWORD written = 0;
        ::WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        ::CloseHandle(file);
        ASSERT_EQ(written, content.size()) << path;
    }

    // The same script, but it gives up after two seconds rather than after two minutes.
    void Hurry()
    {
        const std::string patience = "set seconds=120";
        script_.replace(script_.find(patience), patience.size(), "set seconds=2");
        Write(product_ / "bin" / "clearKTR.bat");
        Write(root_ / "temp" / "clearKTR.bat");
    }

    void
    Junction(const fs::path &link, const fs::path &target, const std::wstring &form = L"\\??\\")
    {
        fs::create_directories(link.parent_path());
        if (IsWine()) {
            Hurry();
            RunUnderWine("ln -s", link, target, true);
        } else {
            MakeJunction(link, form + target.wstring());
        }
        ASSERT_TRUE(IsLink(link)) << link;
    }

    // False without the right to create one.
    bool SymbolicLink(const fs::path &link, const fs::path &target)
    {
        constexpr DWORD kUnprivileged = 2;
        const DWORD folder = fs::is_directory(target) ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
        if (IsWine()) {
            Hurry();
            RunUnderWine("ln -s", link, target, true);
        } else if (::CreateSymbolicLinkW(link.c_str(), target.c_str(), folder | kUnprivileged) ==
                   0) {
            ::CreateSymbolicLinkW(link.c_str(), target.c_str(), folder);
        }
        return IsLink(link);
    }

    // Calls the script as the program does and returns its status.
    int Call(const fs::path &folder) const
    {
        const fs::path temp = root_ / "temp";
        const Process script(temp.wstring() + L"\\clearKTR.bat \"" + folder.wstring() + L'"',
                             temp,
                             root_.wstring() + L".txt");
        constexpr DWORD kDeadline = 300000;
        return script.Wait(kDeadline);
    }

    // Calls the script and returns its status. Only what lies in `mayGo` may have changed, and the
    // script's copy is gone.
    int CallAndCompare(const fs::path &mayGo, const fs::path &argument)
    {
        Tree before = Everything();
        const int status = Call(argument);
        Tree after = Everything();
        before.erase(Long(root_ / "temp" / "clearKTR.bat"));
        const auto forget = [&mayGo](Tree *tree) {
            for (auto entry = tree->begin(); entry != tree->end();) {
                const bool within =
                    !mayGo.empty() && (entry->first + L'\\').rfind(Long(mayGo) + L'\\', 0) == 0;
                entry = within ? tree->erase(entry) : std::next(entry);
            }
        };
        forget(&before);
        forget(&after);
        for (const auto &[path, facts] : before) {
            EXPECT_TRUE(after.count(path) != 0 && after[path] == facts)
                << "gone or changed: " << fs::path(path).u8string();
            after.erase(path);
        }
        for (const auto &[path, ignored] : after) {
            ADD_FAILURE() << "new or left: " << fs::path(path).u8string();
        }
        EXPECT_EQ(status == kGone, !fs::exists(product_));
        return status;
    }
    void Expect(int status, const fs::path &mayGo, const fs::path &argument = {})
    {
        EXPECT_EQ(CallAndCompare(mayGo, argument.empty() ? product_ : argument), status);
    }
    // The whole product goes, and nothing else.
    void ExpectGone()
    {
        Expect(kGone, product_);
    }
    // Links go as links. Wine removes none, so there the script stops; nothing behind one may go.
    void ExpectLinksNotFollowed()
    {
        Expect(IsWine() ? kLeft : kGone, product_);
        if (IsWine()) {
            GTEST_SKIP() << "Wine removes no links. Nothing behind this one changed.";
        }
    }

    Tree Everything() const
    {
        Tree tree;
        Look(Long(root_), &tree);
        return tree;
    }

    fs::path root_;
    fs::path product_;
    fs::path outside_ = root_ / "outside";
    std::string script_ = [] {
        std::ifstream file("files\\clearKTR.bat", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
};

TEST_F(CleanUp, RemovesTheProductFolderAndItself)
{
    ExpectGone();
}

TEST_F(CleanUp, HandlesSpecialCharactersInThePath)
{
    Lay("R&D ! ^ (x86) ;,=");
    ExpectGone();
}

TEST_F(CleanUp, HandlesLettersBeyondAscii)
{
    Lay(L"Dr\u00e4w\u00efk \u65e5\u672c");
    ExpectGone();
}

TEST_F(CleanUp, HandlesPercentSignsInThePath)
{
    if (IsWine()) {
        GTEST_SKIP() << "Wine expands percent signs in arguments.";
    }
    Lay("100%pure");
    ExpectGone();
}

TEST_F(CleanUp, HandlesPercentSignsInNames)
{
    if (IsWine()) {
        GTEST_SKIP() << "Wine expands percent signs in arguments.";
    }
    Write(product_ / "bin" / "%TEMP% 100%pure" / "a%b%c.txt");
    ExpectGone();
}

TEST_F(CleanUp, RemovesReadOnlyHiddenAndSystemFiles)
{
    for (const char *file : {"bin\\UninstallUI.exe", "bin\\Qt5Core.dll", "left over.txt"}) {
        ::SetFileAttributesW((product_ / file).c_str(),
                             FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                 FILE_ATTRIBUTE_SYSTEM);
    }
    ExpectGone();
}

TEST_F(CleanUp, RefusesAProductWithAHiddenFolder)
{
    fs::create_directory(product_ / "hidden");
    ::SetFileAttributesW((product_ / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    Expect(kRefused, {});
}

TEST_F(CleanUp, RefusesAScriptThatDiffersByOneByte)
{
    if (IsWine()) {
        GTEST_SKIP() << "To Wine's fc, any two files are equal.";
    }
    std::ofstream(product_ / "bin" / "clearKTR.bat", std::ios::binary | std::ios::app) << ' ';
    Expect(kRefused, {});
}

TEST_F(CleanUp, RefusesAFolderWithoutTheProgram)
{
    Expect(kRefused, {}, outside_);
}

TEST_F(CleanUp, RefusesAProductBehindAJunction)
{
    Junction(root_ / "link", root_ / "Program Files");
    Expect(kRefused, {}, root_ / "link" / "Torvan" / "Dravik");
}

TEST_F(CleanUp, DoesNotFollowAJunction)
{
    Junction(product_ / "bin" / "junction", outside_);
    ExpectLinksNotFollowed();
}

TEST_F(CleanUp, DoesNotFollowAJunctionInAHiddenFolder)
{
    Junction(product_ / "res" / "hidden" / "junction", outside_);
    ::SetFileAttributesW((product_ / "res" / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    ExpectLinksNotFollowed();
}

// The target of a mounted volume has this form. A folder of it is safer than the whole volume.
TEST_F(CleanUp, DoesNotFollowAMountPoint)
{
    wchar_t volume[MAX_PATH] = {};
    if (IsWine() ||
        ::GetVolumeNameForVolumeMountPointW(
            (root_.root_path()).c_str(), volume, static_cast<DWORD>(std::size(volume))) == FALSE) {
        GTEST_SKIP() << "The drive has no volume name.";
    }
    const std::wstring form = L"\\??\\" + std::wstring(volume).substr(4);
    Junction(product_ / "mounted", outside_.relative_path(), form);
    ExpectLinksNotFollowed();
}

TEST_F(CleanUp, DoesNotFollowASymbolicLinkToAFolder)
{
    if (!SymbolicLink(product_ / "link", outside_)) {
        GTEST_SKIP() << "This user may not create symbolic links.";
    }
    ExpectLinksNotFollowed();
}

TEST_F(CleanUp, DoesNotFollowASymbolicLinkToAFile)
{
    if (IsWine()) {
        GTEST_SKIP() << "Wine removes the file that a link leads to.";
    }
    if (!SymbolicLink(product_ / "link.txt", outside_ / "keep.txt")) {
        GTEST_SKIP() << "This user may not create symbolic links.";
    }
    ExpectGone();
}

TEST_F(CleanUp, HandlesDeepFolders)
{
    fs::path folder = product_;
    for (int level = 0; level < 20; ++level) {
        folder /= "d";
    }
    Write(folder / "leaf.txt");
    ExpectGone();
}

// Most versions of the interpreter cannot look into such a folder; then the script leaves it.
TEST_F(CleanUp, HarmsNothingAroundPathsBeyond260Characters)
{
    if (IsWine()) {
        GTEST_SKIP() << "Wine does not enforce the limit.";
    }
    Hurry();
    const std::string name(100, 'x');
    Write(product_ / name / name / name / "leaf.txt");
    const int status = CallAndCompare(product_, product_);
    EXPECT_TRUE(status == kGone || status == kLeft) << status;
}

TEST_F(CleanUp, LeavesAFileInUse)
{
    Hurry();
    HANDLE file = Open(product_ / "bin" / "Qt5Core.dll");
    Expect(kLeft, product_);
    EXPECT_TRUE(fs::exists(product_ / "bin" / "Qt5Core.dll"));
    ::CloseHandle(file);
}

TEST_F(CleanUp, WaitsForTheProgramAndThenRemovesNothing)
{
    Hurry();
    HANDLE program = Open(product_ / "bin" / "UninstallUI.exe");
    Expect(kStillRunning, {});
    ::CloseHandle(program);
}

} // namespace
