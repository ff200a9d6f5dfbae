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

struct Pair
{
    const wchar_t *left;
    const wchar_t *right;
    bool equal;
};

TEST(TextContract, ComparisonIgnoresTheCaseOfAToZAndNothingElse)
{
    for (const Pair &pair : {Pair{L"", L"", true},
                             {L"KTRUI.exe", L"KTRUI.exe", true},
                             {L"\u65e5\u672c", L"\u65e5\u672c", true},
                             {L"SkyrelWrapExe.exe", L"SKYRELWRAPEXE.EXE", true},
                             {L"abcxyz", L"ABCXYZ", true},
                             {L"@", L"`", false}, // neighbours of the letters
                             {L"[", L"{", false},
                             {L"\\", L"/", false},
                             {L"\u00c4", L"\u00e4", false},
                             {L"I", L"\u0131", false},
                             {L"C:\\Dravik\\", L"C:\\Dravik", false},
                             {L"abc", L"abd", false},
                             {L"abc", L"ab", false},
                             {L"", L"a", false}}) {
        EXPECT_EQ(EqualsIgnoringCase(pair.left, pair.right), pair.equal)
            << testing::PrintToString(pair.left) << testing::PrintToString(pair.right);
    }
    EXPECT_TRUE(EqualsIgnoringCase(std::wstring_view(L"name.exe.other", 8), L"NAME.EXE"));
}

} // namespace
