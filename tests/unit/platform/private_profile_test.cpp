#include "platform/private_profile.h"
#include "tests/unit/platform/support/system.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Profile
{
    const char *name;
    std::string content;
    std::wstring value;
    std::size_t capacity = 100;
};

std::wstring Read(const std::filesystem::path &file, std::size_t capacity = 100)
{
    return platform::ReadProfileText(L"main", L"versionNo", L"18.0", capacity, file.wstring());
}

TEST(ProfileContract, ReadsOneValueAsWindowsDoes)
{
    const contract::ScratchFolder folder;
    const std::string start = "[main]\r\nversionNo=";
    const std::string digits(99, '7');
    for (const Profile &profile : {
             Profile{"its key in its section", start + "19.2\r\n", L"19.2"},
             {"among others",
              "[other]\r\nversionNo=1\r\n[main]\r\na=b\r\nversionNo=2\r\n[end]\r\n",
              L"2"},
             {"in any case", "[MAIN]\r\nVERSIONNO=3\r\n", L"3"},
             {"nothing", "", L"18.0"},
             {"another section", "[other]\r\nversionNo=1\r\n", L"18.0"},
             {"another key", "[main]\r\nversion=1\r\n", L"18.0"},
             {"no section", "versionNo=1\r\n", L"18.0"},
             {"an empty value", start + "\r\n", L""},
             {"a value of spaces", start + "   \r\n", L""},
             {"only quotes", start + "\"\"\r\n", L""},
             {"spaces around", "[main]\r\n  versionNo  =  19.2  \r\n", L"19.2"},
             {"double quotes", start + "\"19.2\"\r\n", L"19.2"},
             {"single quotes", start + "'19.2'\r\n", L"19.2"},
             {"spaces in quotes", start + "\" 19.2 \"\r\n", L" 19.2 "},
             {"a second section", "[main]\r\na=1\r\n[main]\r\nversionNo=2\r\n", L"18.0"},
             {"an equals sign", start + "19=2\r\n", L"19=2"},
             {"what just fits", start + digits + "\r\n", std::wstring(99, L'7')},
             {"what is longer", start + digits + "88\r\n", std::wstring(99, L'7')},
             {"small capacity", start + "12345\r\n", L"123", 4},
         }) {
        // A new file for each row: the system may cache what it has read.
        const auto file = folder / (contract::UniqueName("config") + ".ini");
        contract::WriteFile(file, profile.content);
        EXPECT_EQ(Read(file, profile.capacity), profile.value) << profile.name;
    }
}

TEST(ProfileContract, GivesTheFallbackWithoutAFile)
{
    const contract::ScratchFolder folder;
    contract::WriteFile(folder / "app.exe", "x");
    EXPECT_EQ(Read(folder / "none.ini"), L"18.0");
    EXPECT_EQ(Read(folder / "app.exe" / "config.ini"), L"18.0");
}

} // namespace
