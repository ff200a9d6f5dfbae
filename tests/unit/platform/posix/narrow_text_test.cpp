#include "platform/posix/narrow_text.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

namespace {

using platform::ToNarrow;
using platform::ToWide;

/// The environment's locale is looked up once, at the first conversion.
class Utf8Environment : public testing::Environment
{
public:
    void SetUp() override
    {
        ::setenv("LC_ALL", "C.UTF-8", 1);
    }
};
const testing::Environment *const kUtf8 = testing::AddGlobalTestEnvironment(new Utf8Environment);

TEST(NarrowText, TheGlobalLocaleDoesNotCount)
{
    ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_EQ(ToWide("Gr\xc3\xbc\xc3\x9f"), L"Gr\u00fc\u00df");
    EXPECT_EQ(ToNarrow(L"Gr\u00fc\u00df"), "Gr\xc3\xbc\xc3\x9f");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(NarrowText, EveryPlaneIsOneCharacter)
{
    EXPECT_EQ(ToWide("\xe6\x97\xa5\xf0\x9f\x98\x80"), L"\u65e5\U0001F600");
    EXPECT_EQ(ToNarrow(L"\u65e5\U0001F600"), "\xe6\x97\xa5\xf0\x9f\x98\x80");
}

TEST(NarrowText, NothingIsNothing)
{
    EXPECT_EQ(ToWide(""), L"");
    EXPECT_EQ(ToNarrow(L""), "");
}

TEST(NarrowText, BrokenBytesStayApartAndComeBack)
{
    std::set<std::wstring> different;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = std::string("a") + static_cast<char>(byte) + "b";
        EXPECT_EQ(ToNarrow(ToWide(text)), text) << byte;
        EXPECT_EQ(ToWide(text).size(), 3U) << byte;
        different.insert(ToWide(text));
    }
    EXPECT_EQ(different.size(), 255U);
}

TEST(NarrowText, ACutCharacterStaysApart)
{
    const std::string cut = "a\xe6\x97";
    EXPECT_EQ(ToWide(cut).size(), 3U);
    EXPECT_EQ(ToNarrow(ToWide(cut)), cut);
}

TEST(NarrowText, AnEncodedEscapeIsNotTakenForOne)
{
    const std::string encoded = "\xed\xb3\xbf"; // U+DCFF, which UTF-8 does not allow
    EXPECT_EQ(ToNarrow(ToWide(encoded)), encoded);
    EXPECT_NE(ToWide(encoded), ToWide("\xff"));
}

TEST(NarrowText, WhatCannotBeEncodedBecomesAQuestionMark)
{
    EXPECT_EQ(ToNarrow(L"a\xD800"
                       L"b"),
              "a?b");
}

} // namespace
