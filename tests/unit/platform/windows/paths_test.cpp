#include "platform/files.h"
#include "platform/library.h"
#include "tests/unit/platform/support/child.h"

#include <array>
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

bool CodePageHas(const wchar_t *text)
{
    std::array<char, 100> ansi = {};
    const int size = static_cast<int>(ansi.size());
    BOOL replaced = FALSE;
    // UTF-8 has every letter; with it, WideCharToMultiByte refuses the flag and the last parameter.
    return ::GetACP() == CP_UTF8 ||
           (::WideCharToMultiByte(
                CP_ACP, WC_NO_BEST_FIT_CHARS, text, -1, ansi.data(), size, nullptr, &replaced) !=
                0 &&
            replaced == FALSE);
}

// For a letter that the code page lacks, the system puts a similar one or a question mark.
TEST(ModulePathOnWindows, TheFolderIsExactWhenTheCodePageHasEveryLetter)
{
    for (const wchar_t *name :
         {L"plain", L"\u00dcml\u00e4ute \u00e9", L"\u0141\u00f3d\u017a", L"\u4e2d\u6587"}) {
        const contract::ScratchFolder scratch;
        const auto program = scratch / name / "program.exe";
        contract::CopyChildProgram(program);
        EXPECT_EQ(contract::StartedChild(program).Ask({"folder-is-exact"}),
                  CodePageHas(name) ? "yes" : "no")
            << name;
    }
}

} // namespace
