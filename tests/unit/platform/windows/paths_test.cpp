#include "platform/files.h"
#include "platform/library.h"
#include "tests/unit/platform/support/child.h"

#include <fstream>
#include <gtest/gtest.h>
#include <windows.h>

namespace {

TEST(FilesOnWindows, AFileThatAStreamHoldsOpenIsNotRemoved)
{
    const contract::ScratchFolder folder;
    const auto file = folder / "shared";
    contract::WriteFile(file, "content");
    const std::ifstream reader(file, std::ios::binary);
    ASSERT_TRUE(reader.is_open());
    platform::RemoveFile(file.string());
    EXPECT_TRUE(std::filesystem::exists(file));
}

// Windows shows a message box about a damaged library, unless the thread's error mode forbids it.
TEST(LibraryOnWindows, NoMessageBoxIsShownAboutALibrary)
{
    constexpr DWORD kBefore = SEM_NOGPFAULTERRORBOX;
    DWORD ours = 0;
    ASSERT_TRUE(::SetThreadErrorMode(kBefore, &ours));
    const auto path = contract::FixtureLibrary().parent_path() / "contract_error_mode.dll";
    const platform::LibraryHandle library = platform::LoadLibraryFile(path.string().c_str());
    EXPECT_EQ(::GetThreadErrorMode(), kBefore) << "the mode is the caller's again";
    ::SetThreadErrorMode(ours, nullptr);

    ASSERT_NE(library, nullptr);
    const auto modeAtLoad =
        reinterpret_cast<DWORD (*)()>(platform::FindFunction(library, "ErrorModeAtLoad"));
    ASSERT_NE(modeAtLoad, nullptr);
    EXPECT_EQ(modeAtLoad(), DWORD{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
}

struct Folder
{
    const char *name; ///< in UTF-8
    const char *exact;
};

// For a letter that the code page lacks, the system puts a similar one or a question mark.
TEST(ModulePathOnWindows, TheFolderIsExactWhenTheCodePageHasEveryLetter)
{
    for (const Folder &folder : {Folder{"plain", "yes"},
                                 {"\u00dcml\u00e4ute \u00e9", "yes"},
                                 {"\u0141\u00f3d\u017a", "no"},
                                 {"\u4e2d\u6587", "no"}}) {
        const contract::ScratchFolder scratch;
        const auto program = scratch / std::filesystem::u8path(folder.name) / "program.exe";
        contract::CopyChildProgram(program);
        EXPECT_EQ(contract::StartedChild(program).Ask({"folder-is-exact"}), folder.exact)
            << folder.name;
    }
}

} // namespace
