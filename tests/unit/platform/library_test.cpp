#include "platform/library.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

using Sum = int (*)(int, int);

TEST(LibraryContract, ExportedFunctionCanBeCalled)
{
    const platform::LibraryHandle library =
        platform::LoadLibraryFile(contract::FixtureLibrary().string().c_str());
    ASSERT_NE(library, nullptr);
    const auto sum = reinterpret_cast<Sum>(platform::FindFunction(library, "ContractSum"));
    ASSERT_NE(sum, nullptr);
    EXPECT_EQ(sum(40, 2), 42);
}

TEST(LibraryContract, LoadedTwiceIsTheSameLibrary)
{
    const std::string path = contract::FixtureLibrary().string();
    const platform::LibraryHandle first = platform::LoadLibraryFile(path.c_str());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(platform::LoadLibraryFile(path.c_str()), first);
}

TEST(LibraryContract, EachLoadCountsAndNothingElseLoads)
{
    const contract::ScratchFolder folder;
    const auto path = folder / "contract_counted.dll";
    std::filesystem::copy_file(contract::FixtureLibrary(), path);
    const platform::LibraryHandle library = platform::LoadLibraryFile(path.string().c_str());
    EXPECT_TRUE(contract::IsLibraryLoaded(path));
    ASSERT_EQ(platform::LoadLibraryFile(path.string().c_str()), library);
    EXPECT_NE(platform::FindFunction(library, "ContractSum"), nullptr);
    contract::UnloadLibrary(library);
    EXPECT_TRUE(contract::IsLibraryLoaded(path)) << "loaded twice, given back once";
    contract::UnloadLibrary(library);
    EXPECT_FALSE(contract::IsLibraryLoaded(path)) << "loaded twice, given back twice";
}

TEST(LibraryContract, MissingExportIsNull)
{
    const platform::LibraryHandle library =
        platform::LoadLibraryFile(contract::FixtureLibrary().string().c_str());
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(platform::FindFunction(library, "ContractMissing"), nullptr);
    EXPECT_EQ(platform::FindFunction(library, "contractsum"), nullptr);
    EXPECT_EQ(platform::FindFunction(library, ""), nullptr);
}

TEST(LibraryContract, MissingLibraryIsNull)
{
    const contract::ScratchFolder folder;
    EXPECT_EQ(platform::LoadLibraryFile((folder / "missing.dll").string().c_str()), nullptr);
}

TEST(LibraryContract, FileThatIsNoLibraryIsNull)
{
    const contract::ScratchFolder folder;
    contract::WriteFile(folder / "garbage.dll", "This is not a library.");
    contract::WriteFile(folder / "empty.dll", "");
    EXPECT_EQ(platform::LoadLibraryFile((folder / "garbage.dll").string().c_str()), nullptr);
    EXPECT_EQ(platform::LoadLibraryFile((folder / "empty.dll").string().c_str()), nullptr);
    EXPECT_EQ(platform::LoadLibraryFile(folder.Path().string().c_str()), nullptr);
}

TEST(LibraryContract, NoPathIsNull)
{
    EXPECT_EQ(platform::LoadLibraryFile(nullptr), nullptr);
    EXPECT_EQ(platform::LoadLibraryFile(""), nullptr);
}

TEST(LibraryContract, NoLibraryHasNoFunction)
{
    EXPECT_EQ(platform::FindFunction(nullptr, "ContractSum"), nullptr);
    EXPECT_EQ(platform::FindFunction(nullptr, "malloc"), nullptr);
}

TEST(LibraryContract, BareNameIsFoundByTheSystemsOwnSearch)
{
    const contract::ScratchFolder folder;
    const auto program = folder / ("searching" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    std::filesystem::copy_file(contract::FixtureLibrary(), folder / "contract_searched.dll");
    const contract::ScopedVariable search("LD_LIBRARY_PATH", folder.Path().string());
    contract::StartedChild child(program);
    EXPECT_EQ(child.Ask({"load-library", "contract_searched.dll"}), "loaded");
    EXPECT_EQ(child.Ask({"load-library", "contract_unknown.dll"}), "missing");
}

} // namespace
