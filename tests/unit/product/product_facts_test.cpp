#include "platform/text.h"
#include "services/product/product_facts.h"
#include "tests/unit/platform/support/registry_values.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

namespace {

constexpr const char *kProduct = "Software\\TORVAN\\KTR";
constexpr const char *kVersion = "Software\\TORVAN\\KTR\\Version";
constexpr const char *kDownload32 = "Software\\WOW6432Node\\TORVAN\\KTR_dd";
constexpr const char *kDownload = "Software\\TORVAN\\KTR_dd";

class ProductFacts : public testing::Test
{
protected:
    contract::RegistryValues values;
};

TEST_F(ProductFacts, AreEmptyWithoutTheirKeys)
{
    EXPECT_EQ(GetOemName(), "");
    EXPECT_EQ(GetXurlId(), "");
    EXPECT_EQ(GetProductLanguage(), "");
}

TEST_F(ProductFacts, AreEmptyWithoutTheirValues)
{
    values.Create(kVersion);
    values.Create(kDownload);
    EXPECT_EQ(GetOemName(), "");
    EXPECT_EQ(GetXurlId(), "");
    EXPECT_EQ(GetProductLanguage(), "");
}

TEST_F(ProductFacts, AreReadFromTheirPlaces)
{
    values.SetText(kVersion, "OEM", "acme");
    values.SetText(kDownload32, "xurlID", "5521");
    values.SetText(kProduct, "Language", "English");
    EXPECT_EQ(GetOemName(), "acme");
    EXPECT_EQ(GetXurlId(), "5521");
    EXPECT_EQ(GetProductLanguage(), "English");
}

TEST_F(ProductFacts, AreReadAfreshEachTime)
{
    values.SetText(kVersion, "OEM", "one");
    EXPECT_EQ(GetOemName(), "one");
    values.SetText(kVersion, "OEM", "two");
    EXPECT_EQ(GetOemName(), "two");
}

// The thread sanitizer sees every shared buffer. Without it, only some races change a result.
TEST_F(ProductFacts, CanBeReadFromSeveralThreads)
{
    constexpr int kRounds = 20;
    values.SetText(kVersion, "OEM", std::string(259, 'o'));
    values.SetText(kDownload32, "xurlID", std::string(259, 'x'));
    values.SetText(kProduct, "Language", std::string(259, 'l'));
    std::atomic<int> wrong{0};
    const auto read = [&wrong](auto fact) {
        return std::thread([&wrong, fact, expected = fact()] {
            for (int round = 0; round < kRounds; ++round) {
                wrong += fact() == expected ? 0 : 1;
            }
        });
    };
    // Each twice: a buffer may be shared by the calls of one function only.
    std::array<std::thread, 8> readers = {read(GetOemName),
                                          read(GetOemName),
                                          read(GetXurlId),
                                          read(GetXurlId),
                                          read(GetProductLanguage),
                                          read(GetProductLanguage),
                                          read(GetConfigVersionNo),
                                          read(GetConfigVersionNo)};
    for (std::thread &reader : readers) {
        reader.join();
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(ProductFacts, FitIntoTheirBuffer)
{
    values.SetText(kVersion, "OEM", std::string(257, 'x'));
    EXPECT_EQ(GetOemName(), std::string(257, 'x')); // 258 bytes with the zero
    values.SetText(kVersion, "OEM", std::string(259, 'x'));
    EXPECT_EQ(GetOemName(), std::string(259, 'x')); // 260 bytes with the zero
    values.SetText(kVersion, "OEM", std::string(260, 'x'));
    EXPECT_EQ(GetOemName(), ""); // 261
    // Not as a text, to which some systems add the zero themselves.
    constexpr int kBinary = 3;
    values.Set(kVersion, "OEM", std::string(260, 'x'), kBinary);
    EXPECT_EQ(GetOemName(), std::string(260, 'x')); // 260 without a zero
    values.Set(kVersion, "OEM", std::string(261, 'x'), kBinary);
    EXPECT_EQ(GetOemName(), "");
}

TEST_F(ProductFacts, EndAtTheFirstZeroWhateverTheType)
{
    values.Set(kVersion, "OEM", std::string("ab\0cd\0", 6));
    EXPECT_EQ(GetOemName(), "ab");
    constexpr int kNumber = 4;
    values.Set(kProduct, "Language", std::string("N\0\0\0", 4), kNumber);
    EXPECT_EQ(GetProductLanguage(), "N");
    values.SetText(kProduct, "Language", "");
    EXPECT_EQ(GetProductLanguage(), "");
}

TEST_F(ProductFacts, TheSecondDownloadKeyIsForMachinesWithoutTheFirst)
{
    values.SetText(kDownload, "xurlID", "second");
    EXPECT_EQ(GetXurlId(), "second");
    values.Create(kDownload32);
    EXPECT_EQ(GetXurlId(), "") << "the first key counts, even without the value";
    values.SetText(kDownload32, "xurlID", "first");
    EXPECT_EQ(GetXurlId(), "first");
}

class ConfigVersion : public testing::Test
{
protected:
    // A folder in the place of the executable, which a real one leaves no room for.
    std::wstring Read(const std::string &content)
    {
        const auto executable = folder / contract::UniqueName("app.exe");
        std::filesystem::create_directory(executable);
        contract::WriteFile(executable / "config.ini", content);
        return ConfigVersionNoOf(executable.wstring());
    }

    contract::ScratchFolder folder;
};

TEST_F(ConfigVersion, IsTheDefaultForARealExecutable)
{
    EXPECT_EQ(GetConfigVersionNo(), L"18.0");
    const auto executable = folder / "app.exe";
    contract::WriteFile(executable, "x");
    // Beside it does not count.
    contract::WriteFile(folder / "config.ini", "[main]\r\nversionNo=19.0\r\n");
    EXPECT_EQ(ConfigVersionNoOf(executable.wstring()), L"18.0");
}

TEST_F(ConfigVersion, IsReadFromBeneathTheExecutable)
{
    EXPECT_EQ(Read("[main]\r\nversionNo=19.2.1\r\n"), L"19.2.1");
    EXPECT_EQ(Read("[main]\r\nversionNo=\" 20 \"\r\n"), L" 20 ");
    EXPECT_EQ(Read("[main]\r\nother=1\r\n"), L"18.0");
    EXPECT_EQ(Read("[Main]\r\nVersionNo=21\r\n"), L"21");
}

TEST_F(ConfigVersion, MayBeEmptyAndIsCutAt99Characters)
{
    EXPECT_EQ(Read("[main]\r\nversionNo=\r\n"), L"");
    for (const std::size_t length : {99U, 100U, 101U}) {
        EXPECT_EQ(Read("[main]\r\nversionNo=" + std::string(length, '7') + "\r\n"),
                  std::wstring(99, L'7'))
            << length;
    }
}

} // namespace
