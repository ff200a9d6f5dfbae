#include "platform/text.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace {

using platform::EqualsIgnoringCase;

TEST(TextContract, SeparatorsAreTheSystemsOwn)
{
    const auto own = std::filesystem::path::preferred_separator;
    EXPECT_EQ(platform::kNativeSeparator, static_cast<char>(own));
    EXPECT_EQ(platform::kNativeSeparatorWide, static_cast<wchar_t>(own));
}

TEST(TextContract, EqualTextsAreEqual)
{
    EXPECT_TRUE(EqualsIgnoringCase(L"", L""));
    EXPECT_TRUE(EqualsIgnoringCase(L"KTRUI.exe", L"KTRUI.exe"));
    EXPECT_TRUE(EqualsIgnoringCase(L"\u65e5\u672c", L"\u65e5\u672c"));
}

TEST(TextContract, CaseOfLettersIsIgnored)
{
    EXPECT_TRUE(EqualsIgnoringCase(L"SkyrelWrapExe.exe", L"SKYRELWRAPEXE.EXE"));
    EXPECT_TRUE(EqualsIgnoringCase(L"abcxyz", L"ABCXYZ"));
}

TEST(TextContract, NeighboursOfLettersAreNot)
{
    EXPECT_FALSE(EqualsIgnoringCase(L"@", L"`"));
    EXPECT_FALSE(EqualsIgnoringCase(L"[", L"{"));
    EXPECT_FALSE(EqualsIgnoringCase(L"\\", L"/"));
}

TEST(TextContract, OnlyAToZHaveACase)
{
    EXPECT_FALSE(EqualsIgnoringCase(L"\u00c4", L"\u00e4"));
    EXPECT_FALSE(EqualsIgnoringCase(L"I", L"\u0131"));
}

TEST(TextContract, NoNormalisationOfPaths)
{
    EXPECT_FALSE(EqualsIgnoringCase(L"C:\\Dravik\\", L"C:\\Dravik"));
    EXPECT_FALSE(EqualsIgnoringCase(L"abc", L"abd"));
    EXPECT_FALSE(EqualsIgnoringCase(L"abc", L"ab"));
    EXPECT_FALSE(EqualsIgnoringCase(L"", L"a"));
}

TEST(TextContract, ViewsEndWhereTheySay)
{
    const std::wstring text = L"name.exe.other";
    EXPECT_TRUE(EqualsIgnoringCase(std::wstring_view(text).substr(0, 8), L"NAME.EXE"));
}

} // namespace
