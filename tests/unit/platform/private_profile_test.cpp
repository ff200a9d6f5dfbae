#include "platform/private_profile.h"
#include "tests/unit/platform/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class ProfileContract : public testing::Test
{
protected:
    std::wstring Read(const std::string &content, std::size_t capacity = 100)
    {
        // A file of its own for each: systems remember what they have read.
        const auto file = folder / (contract::UniqueName("config") + ".ini");
        contract::WriteFile(file, content);
        return platform::ReadProfileText(L"main", L"versionNo", L"18.0", capacity, file.wstring());
    }

    contract::ScratchFolder folder;
};

TEST_F(ProfileContract, FindsItsKeyInItsSection)
{
    EXPECT_EQ(Read("[main]\r\nversionNo=19.2\r\n"), L"19.2");
    EXPECT_EQ(Read("[other]\r\nversionNo=1\r\n[main]\r\na=b\r\nversionNo=2\r\n[end]\r\n"), L"2");
    EXPECT_EQ(Read("[MAIN]\r\nVERSIONNO=3\r\n"), L"3");
}

TEST_F(ProfileContract, WithoutItTheFallbackCounts)
{
    EXPECT_EQ(Read(""), L"18.0");
    EXPECT_EQ(Read("[other]\r\nversionNo=1\r\n"), L"18.0");
    EXPECT_EQ(Read("[main]\r\nversion=1\r\n"), L"18.0");
    EXPECT_EQ(Read("versionNo=1\r\n"), L"18.0");
    const std::wstring missing = (folder / "none.ini").wstring();
    EXPECT_EQ(platform::ReadProfileText(L"main", L"versionNo", L"18.0", 100, missing), L"18.0");
}

TEST_F(ProfileContract, AFileBelowAFileIsMissing)
{
    contract::WriteFile(folder / "app.exe", "x");
    const std::wstring below = (folder / "app.exe" / "config.ini").wstring();
    EXPECT_EQ(platform::ReadProfileText(L"main", L"versionNo", L"18.0", 100, below), L"18.0");
}

TEST_F(ProfileContract, AnEmptyValueIsEmpty)
{
    EXPECT_EQ(Read("[main]\r\nversionNo=\r\n"), L"");
    EXPECT_EQ(Read("[main]\r\nversionNo=   \r\n"), L"");
    EXPECT_EQ(Read("[main]\r\nversionNo=\"\"\r\n"), L"");
}

TEST_F(ProfileContract, BlanksAndOnePairOfQuotesGo)
{
    EXPECT_EQ(Read("[main]\r\n  versionNo  =  19.2  \r\n"), L"19.2");
    EXPECT_EQ(Read("[main]\r\nversionNo=\"19.2\"\r\n"), L"19.2");
    EXPECT_EQ(Read("[main]\r\nversionNo='19.2'\r\n"), L"19.2");
    EXPECT_EQ(Read("[main]\r\nversionNo=\" 19.2 \"\r\n"), L" 19.2 ");
    EXPECT_EQ(Read("[main]\r\nversionNo=19=2\r\n"), L"19=2");
}

TEST_F(ProfileContract, AValueIsCutToTheRoomForIt)
{
    const std::string digits(99, '7');
    EXPECT_EQ(Read("[main]\r\nversionNo=" + digits + "\r\n"), std::wstring(99, L'7'));
    EXPECT_EQ(Read("[main]\r\nversionNo=" + digits + "88\r\n"), std::wstring(99, L'7'));
    EXPECT_EQ(Read("[main]\r\nversionNo=12345\r\n", 4), L"123");
}

} // namespace
