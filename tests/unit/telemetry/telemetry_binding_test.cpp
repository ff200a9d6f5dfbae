#include "platform/library.h"
#include "platform/module_path.h"
#include "platform/text.h"
#include "services/telemetry/telemetry_binding.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <new>
#include <string>

namespace {

std::string Fixture(const char *name)
{
    return std::string(FIXTURE_DIR) + "/" + name + ".DLL";
}

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
TEST(TelemetryLibraryPath, ReachesAtMostTwoHundredFiftyNineCharacters)
{
    const std::string separator(1, platform::kNativeSeparator);
    const std::string library = "SkyrelWrap.DLL";
    for (const std::size_t length : {20U, 257U, 258U, 259U, 260U, 261U}) {
        const std::string directory(length - library.size() - 1, 'd');
        const std::string path = TelemetryBinding::LibraryPathOf(directory + separator + "x.exe");
        const std::string expected = directory + separator + library;
        ASSERT_EQ(expected.size(), length);
        EXPECT_EQ(path, length < 260 ? expected : "") << length;
    }
}

TEST(TelemetryLibraryPath, NeedsADirectory)
{
    EXPECT_EQ(TelemetryBinding::LibraryPathOf("x.exe"), "");
    EXPECT_EQ(TelemetryBinding::LibraryPathOf(""), "");
    const std::string separator(1, platform::kNativeSeparator);
    EXPECT_EQ(TelemetryBinding::LibraryPathOf(separator + "x"), separator + "SkyrelWrap.DLL");
}

TEST(TelemetryBinding, AMissingLibraryIsNoFault)
{
    ASSERT_FALSE(std::filesystem::exists(BesideTheExecutable()));
    TelemetryBinding binding;
    EXPECT_FALSE(binding.LoadTelemetryFromModuleDir());
    EXPECT_FALSE(binding.LoadTelemetryLibrary(Fixture("telemetry_missing").c_str()));
}

TEST(TelemetryBinding, ANullPathLoadsNothing)
{
    TelemetryBinding binding;
    EXPECT_FALSE(binding.LoadTelemetryLibrary(nullptr));
    EXPECT_TRUE(binding.LoadTelemetryLibrary(Fixture("telemetry_complete").c_str()));
}

TEST(TelemetryBinding, ACompleteLibraryLoadsOnce)
{
    TelemetryBinding binding;
    EXPECT_TRUE(binding.LoadTelemetryLibrary(Fixture("telemetry_complete").c_str()));
    EXPECT_FALSE(binding.LoadTelemetryLibrary(Fixture("telemetry_complete").c_str()));
}

TEST(TelemetryBinding, APartialLibraryStaysLoadedButIsNotComplete)
{
    TelemetryBinding binding;
    EXPECT_FALSE(
        binding.LoadTelemetryLibrary(Fixture("telemetry_lacks_SkyrelGetKeyValue").c_str()));
    // It stays: another load on the same binding is refused.
    EXPECT_FALSE(binding.LoadTelemetryLibrary(Fixture("telemetry_complete").c_str()));
}

TEST(TelemetryBinding, ItsLibraryStaysWhenItHasGone)
{
    // One that nothing else in this program loads
    const std::string library = Fixture("telemetry_to_stay");
    ASSERT_FALSE(contract::IsLibraryLoaded(library));
    {
        TelemetryBinding binding;
        ASSERT_TRUE(binding.LoadTelemetryLibrary(library.c_str()));
    }
    EXPECT_TRUE(contract::IsLibraryLoaded(library));
}

TEST(TelemetryBinding, AFileThatIsNoLibraryLoadsNothing)
{
    const std::string garbage = Fixture("telemetry_garbage");
    std::ofstream(garbage) << "no library";
    TelemetryBinding binding;
    EXPECT_FALSE(binding.LoadTelemetryLibrary(garbage.c_str()));
    EXPECT_TRUE(binding.LoadTelemetryLibrary(Fixture("telemetry_complete").c_str()));
    std::remove(garbage.c_str());
}

TEST(TelemetryBinding, ConstructionLoadsFromTheProgramDirectoryAndMayRunTwice)
{
    TelemetryBinding tooEarly;
    std::filesystem::copy_file(Fixture("telemetry_complete"), BesideTheExecutable());
    {
        EXPECT_TRUE(tooEarly.LoadTelemetryFromModuleDir());
        alignas(TelemetryBinding) std::array<unsigned char, sizeof(TelemetryBinding)> storage = {};
        auto *const binding = new (storage.data()) TelemetryBinding;
        // Loaded by the construction already.
        EXPECT_FALSE(binding->LoadTelemetryFromModuleDir());
        EXPECT_EQ(binding->SendTelemetryPairs(false, u"t", u"0", u"a", u"1", u"b", u"2"), 77);
        auto *const again = new (storage.data()) TelemetryBinding;
        EXPECT_FALSE(again->LoadTelemetryFromModuleDir());
        EXPECT_EQ(again->SendTelemetryPairs(false, u"t", u"0", u"c", u"3", u"d", u"4"), 77);
        again->~TelemetryBinding();
        // Loading again has only counted: it is one library that has got both calls.
        const auto calls = reinterpret_cast<const char *(*)()>(platform::FindFunction(
            platform::LoadLibraryFile(BesideTheExecutable().string().c_str()), "FixtureCalls"));
        ASSERT_NE(calls, nullptr);
        EXPECT_STREQ(calls(), "9 wide t=0 a=1 b=2\n9 wide t=0 c=3 d=4\n");
    }
    std::error_code error;
    std::filesystem::remove(BesideTheExecutable(), error);
    if (error) {
        // A loaded library cannot be deleted on Windows, but it can be moved out of the way.
        std::filesystem::rename(BesideTheExecutable(), BesideTheExecutable().string() + ".old");
    }
}

} // namespace
