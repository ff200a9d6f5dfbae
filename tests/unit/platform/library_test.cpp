#include "platform/library.h"
#include "tests/unit/platform/support/child.h"

#include <gtest/gtest.h>

namespace {

using platform::FindFunction;
using platform::LibraryHandle;
using platform::LoadLibraryFile;

class LibraryContract : public testing::Test
{
protected:
    static LibraryHandle Load(const std::filesystem::path &path)
    {
        return LoadLibraryFile(path.string().c_str());
    }

    contract::ScratchFolder folder_;
};

TEST_F(LibraryContract, ExportedFunctionCanBeCalledAndAMissingOneIsNull)
{
    const LibraryHandle library = Load(contract::FixtureLibrary());
    ASSERT_NE(library, nullptr);
    const auto sum = reinterpret_cast<int (*)(int, int)>(FindFunction(library, "ContractSum"));
    ASSERT_NE(sum, nullptr);
    EXPECT_EQ(sum(40, 2), 42);
    for (const char *missing : {"ContractMissing", "contractsum", ""}) {
        EXPECT_EQ(FindFunction(library, missing), nullptr) << missing;
    }
    EXPECT_EQ(FindFunction(nullptr, "ContractSum"), nullptr);
    EXPECT_EQ(FindFunction(nullptr, "malloc"), nullptr);
}

TEST_F(LibraryContract, EachLoadCountsAndFindingAFunctionDoesNot)
{
    const auto path = folder_ / "contract_counted.dll";
    std::filesystem::copy_file(contract::FixtureLibrary(), path);
    const LibraryHandle library = Load(path);
    EXPECT_TRUE(contract::IsLibraryLoaded(path));
    ASSERT_EQ(Load(path), library);
    EXPECT_NE(FindFunction(library, "ContractSum"), nullptr);
    contract::UnloadLibrary(library);
    EXPECT_TRUE(contract::IsLibraryLoaded(path)) << "loaded twice, unloaded once";
    contract::UnloadLibrary(library);
    EXPECT_FALSE(contract::IsLibraryLoaded(path)) << "loaded twice, unloaded twice";
}

TEST_F(LibraryContract, LoadingAFileThatIsNoLibraryGivesNull)
{
    contract::WriteFile(folder_ / "garbage.dll", "This is not a library.");
    contract::WriteFile(folder_ / "empty.dll", "");
    for (const char *name : {"missing.dll", "garbage.dll", "empty.dll", ""}) {
        EXPECT_EQ(Load(folder_ / name), nullptr) << name;
    }
    EXPECT_EQ(LoadLibraryFile(nullptr), nullptr);
    EXPECT_EQ(LoadLibraryFile(""), nullptr);
}

TEST_F(LibraryContract, BareNameIsFoundByTheSystemsOwnSearch)
{
    const auto program = folder_ / ("searching" + contract::ProgramExtension());
    contract::CopyChildProgram(program);
    std::filesystem::copy_file(contract::FixtureLibrary(), folder_ / "contract_searched.dll");
    const contract::ScopedVariable search("LD_LIBRARY_PATH", folder_.Path().string());
    contract::StartedChild child(program);
    EXPECT_EQ(child.Ask({"load-library", "contract_searched.dll"}), "loaded");
    EXPECT_EQ(child.Ask({"load-library", "contract_unknown.dll"}), "missing");
}

} // namespace
