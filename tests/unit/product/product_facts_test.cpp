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
    static void Expect(const char *oem, const char *xurlId, const char *language)
    {
        EXPECT_EQ(GetOemName(), oem);
        EXPECT_EQ(GetXurlId(), xurlId);
        EXPECT_EQ(GetProductLanguage(), language);
    }

    contract::RegistryValues values_;
};

TEST_F(ProductFacts, AreReadFromTheirPlacesEachTimeAndEmptyWithoutKeyOrValue)
{
    Expect("", "", "");
    values_.Create(kVersion);
    values_.Create(kDownload);
    Expect("", "", "");
    values_.SetText(kVersion, "OEM", "acme");
    values_.SetText(kDownload, "xurlID", "5521");
    values_.SetText(kProduct, "Language", "English");
    Expect("acme", "5521", "English");
    values_.SetText(kVersion, "OEM", "two");
    Expect("two", "5521", "English");
}

TEST_F(ProductFacts, TheSecondDownloadKeyIsForMachinesWithoutTheFirst)
{
    values_.SetText(kDownload, "xurlID", "second");
    values_.Create(kDownload32);
    EXPECT_EQ(GetXurlId(), "") << "the first key counts, even without the value";
    values_.SetText(kDownload32, "xurlID", "first");
    EXPECT_EQ(GetXurlId(), "first");
}

// The thread sanitizer sees every shared buffer. Without it, only some races change a result.
TEST_F(ProductFacts, CanBeReadFromSeveralThreads)
{
    constexpr int kRounds = 20;
    values_.SetText(kVersion, "OEM", std::string(259, 'o'));
    values_.SetText(kDownload32, "xurlID", std::string(259, 'x'));
    values_.SetText(kProduct, "Language", std::string(259, 'l'));
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

struct Data
{
    std::string bytes;
    int type; ///< REG_SZ (1), to which some systems append the NUL, REG_BINARY (3), REG_DWORD (4)
    std::string fact;
};

TEST_F(ProductFacts, EndAtTheFirstNulAndFitInto260Bytes)
{
    const auto text = [](std::size_t size) {
        return std::string(size, 'x');
    };
    for (const Data &data : {Data{text(257) + '\0', 1, text(257)},
                             {text(259) + '\0', 1, text(259)},
                             {text(260) + '\0', 1, ""},
                             {text(260), 3, text(260)},
                             {text(261), 3, ""},
                             {std::string("ab\0cd\0", 6), 1, "ab"},
                             {std::string("N\0\0\0", 4), 4, "N"},
                             {std::string(1, '\0'), 1, ""}}) {
        values_.Set(kVersion, "OEM", data.bytes, data.type);
        EXPECT_EQ(GetOemName(), data.fact) << data.bytes.size() << " bytes";
    }
}

struct Config
{
    std::string content;
    std::wstring version;
};

TEST(ConfigVersion, IsReadFromBeneathTheExecutableAndCutAt99Characters)
{
    const contract::ScratchFolder folder;
    for (const Config &config :
         {Config{"[main]\r\nversionNo=19.2.1\r\n", L"19.2.1"},
          {"[main]\r\nother=1\r\n", L"18.0"},
          {"[main]\r\nversionNo=\r\n", L""},
          {"[main]\r\nversionNo=" + std::string(99, '7') + "\r\n", std::wstring(99, L'7')},
          {"[main]\r\nversionNo=" + std::string(100, '7') + "\r\n", std::wstring(99, L'7')}}) {
        // A folder replaces the executable: nothing can lie below a real executable.
        const auto executable = folder / contract::UniqueName("app.exe");
        std::filesystem::create_directory(executable);
        contract::WriteFile(executable / "config.ini", config.content);
        EXPECT_EQ(ConfigVersionNoOf(executable.wstring()), config.version) << config.content;
    }
}

TEST(ConfigVersion, IsTheDefaultForARealExecutable)
{
    EXPECT_EQ(GetConfigVersionNo(), L"18.0");
    const contract::ScratchFolder folder;
    contract::WriteFile(folder / "app.exe", "x");
    // Beside it does not count.
    contract::WriteFile(folder / "config.ini", "[main]\r\nversionNo=19.0\r\n");
    EXPECT_EQ(ConfigVersionNoOf((folder / "app.exe").wstring()), L"18.0");
}

} // namespace
