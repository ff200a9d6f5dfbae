#include "platform/module_path.h"
#include "platform/text.h"
#include "tests/unit/telemetry/fixture.h"

#include <array>
#include <new>

namespace {

// No library lies beside the test program unless a test puts one there.
std::filesystem::path BesideTheExecutable()
{
    return std::filesystem::path(platform::ExecutablePath(260)).parent_path() / "SkyrelWrap.DLL";
}

TEST(TelemetryBinding, NamesTheSixteenExportsInTheirOrder)
{
    const std::array<const char *, 16> expected = {
        "SkyrelOpenSession",
        "SkyrelCloseSession",
        "SkyrelAddParamToSessionA",
        "SkyrelAddParamToSessionW",
        "SkyrelSendInfo",
        "SkyrelEnableUserInfoCollect",
        "SkyrelInstallConfigFilePath",
        "SkyrelInstallInitUid",
        "SkyrelUninstallStart",
        "SkyrelUninstallEnd",
        "SkyrelIsEnableUserInfoCollect",
        "SkyrelEndCache",
        "SkyrelGetUserUid",
        "SkyrelStopProcess",
        "SkyrelGetKeyValue",
        "SkyrelSetKeyValue",
    };
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_STREQ(kSkyrelExports.at(i), expected.at(i));
    }
}

// The directory with its separator and the file name must stay below 260 together.
TEST(TelemetryLibraryPath, NeedsADirectoryAndReachesAtMost259Characters)
{
    const std::string library = std::string(1, platform::kNativeSeparator) + "SkyrelWrap.DLL";
    for (const std::size_t length : {15U, 20U, 257U, 258U, 259U, 260U, 261U}) {
        const std::string directory(length - library.size(), 'd');
        EXPECT_EQ(TelemetryBinding::LibraryPathOf(directory + platform::kNativeSeparator + "x.exe"),
                  length < 260 ? directory + library : "")
            << length;
    }
    EXPECT_EQ(TelemetryBinding::LibraryPathOf("x.exe"), "");
    EXPECT_EQ(TelemetryBinding::LibraryPathOf(""), "");
}

TEST(TelemetryBinding, WithoutALibraryNothingIsLoadedAndNothingSent)
{
    ASSERT_FALSE(std::filesystem::exists(BesideTheExecutable()));
    const contract::ScratchFolder folder;
    contract::WriteFile(folder / "garbage", "no library");
    TelemetryBinding binding;
    EXPECT_FALSE(binding.LoadTelemetryFromModuleDir());
    EXPECT_FALSE(binding.LoadTelemetryLibrary((folder / "missing").string().c_str()));
    EXPECT_FALSE(binding.LoadTelemetryLibrary((folder / "garbage").string().c_str()));
    EXPECT_FALSE(binding.LoadTelemetryLibrary(nullptr));
    EXPECT_EQ(binding.SendTelemetryPairs(false, u"t", u"0", u"a", u"1", u"b", u"2"), 0);
    // A failed attempt does not count as the one load.
    EXPECT_TRUE(binding.LoadTelemetryLibrary(TelemetryFake().Path().c_str()));
}

TEST(TelemetryBinding, ACompleteLibraryLoadsOnceAndStaysWhenTheBindingHasGone)
{
    // The fake's own load is undone, so the binding's is the only one.
    TelemetryFake library("", "to_stay");
    {
        TelemetryBinding binding;
        EXPECT_TRUE(binding.LoadTelemetryLibrary(library.Path().c_str()));
        EXPECT_FALSE(binding.LoadTelemetryLibrary(library.Path().c_str()));
        contract::UnloadLibrary(library.Handle());
    }
    EXPECT_TRUE(contract::IsLibraryLoaded(library.Path()));
}

TEST(TelemetryBinding, ALibraryThatLacksAnExportStaysAndSendsIfItCan)
{
    TelemetryFake complete;
    for (const char *name : kSkyrelExports) {
        TelemetryFake library(name);
        ASSERT_EQ(library.Function<void()>(name), nullptr) << name;
        TelemetryBinding binding;
        EXPECT_FALSE(binding.LoadTelemetryLibrary(library.Path().c_str())) << name;
        EXPECT_FALSE(binding.LoadTelemetryLibrary(complete.Path().c_str())) << name;
        const bool sends = std::string(name) != "SkyrelSendInfo";
        EXPECT_EQ(binding.SendTelemetryPairs(false, u"t", u"0", u"a", u"1", u"b", u"2"),
                  sends ? kResult : 0)
            << name;
        EXPECT_EQ(library.NewNotes().size(), sends ? 1U : 0U) << name;
    }
}

TEST(TelemetryBinding, ConstructionLoadsFromTheProgramDirectoryAndMayRunTwice)
{
    TelemetryBinding tooEarly;
    std::filesystem::copy_file(TELEMETRY_FAKE, BesideTheExecutable());
    {
        EXPECT_TRUE(tooEarly.LoadTelemetryFromModuleDir());
        alignas(TelemetryBinding) std::array<unsigned char, sizeof(TelemetryBinding)> storage = {};
        auto *const binding = new (storage.data()) TelemetryBinding;
        // Loaded by the construction already.
        EXPECT_FALSE(binding->LoadTelemetryFromModuleDir());
        const auto library = platform::LoadLibraryFile(BesideTheExecutable().string().c_str());
        const auto fake =
            reinterpret_cast<fake::Fake *(*)()>(platform::FindFunction(library, "FakeOf"))();
        fake->Tell({{"result", "77"}});
        fake->NewNotes();
        EXPECT_EQ(binding->SendTelemetryPairs(false, u"t", u"0", u"a", u"1", u"b", u"2"), kResult);
        auto *const again = new (storage.data()) TelemetryBinding;
        EXPECT_FALSE(again->LoadTelemetryFromModuleDir());
        EXPECT_EQ(again->SendTelemetryPairs(false, u"t", u"0", u"c", u"3", u"d", u"4"), kResult);
        again->~TelemetryBinding();
        // The second load only raised the reference count: one library received both calls.
        EXPECT_EQ(fake->NewNotes(),
                  (Notes{"SkyrelSendInfo count=9 flag=0 wide=1 pairs=[t=0][a=1][b=2]",
                         "SkyrelSendInfo count=9 flag=0 wide=1 pairs=[t=0][c=3][d=4]"}));
    }
    std::error_code error;
    std::filesystem::remove(BesideTheExecutable(), error);
    if (error) {
        // A loaded library cannot be deleted on Windows, but it can be moved out of the way.
        std::filesystem::rename(BesideTheExecutable(), BesideTheExecutable().string() + ".old");
    }
}

} // namespace
