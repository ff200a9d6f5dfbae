#include "platform/posix/multibyte_text.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

namespace {

using platform::ToMultibyte;
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

struct Row
{
    const char *bytes;
    const wchar_t *text;
};

TEST(MultibyteText, CharactersOfEveryPlaneAreConvertedBothWaysWhateverTheGlobalLocale)
{
    ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    for (const Row &row : {Row{"", L""},
                           {"Gr\xc3\xbc\xc3\x9f", L"Gr\u00fc\u00df"},
                           {"\xe6\x97\xa5\xf0\x9f\x98\x80", L"\u65e5\U0001F600"},
                           {"a\xe6\x97", L"a\xDCE6\xDC97"}, // a character that was cut
                           // An encoded U+DCFF, which UTF-8 does not allow
                           {"\xed\xb3\xbf", L"\xDCED\xDCB3\xDCBF"}}) {
        EXPECT_EQ(ToWide(row.bytes), row.text);
        EXPECT_EQ(ToMultibyte(row.text), row.bytes);
    }
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(MultibyteText, InvalidBytesStayDistinctAndAreConvertedBack)
{
    std::set<std::wstring> different;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = std::string("a") + static_cast<char>(byte) + "b";
        EXPECT_EQ(ToMultibyte(ToWide(text)), text) << byte;
        EXPECT_EQ(ToWide(text).size(), 3U) << byte;
        different.insert(ToWide(text));
    }
    EXPECT_EQ(different.size(), 255U);
}

TEST(MultibyteText, WhatCannotBeEncodedBecomesAQuestionMark)
{
    EXPECT_EQ(ToMultibyte(std::wstring(L"a") + wchar_t{0xD800} + L'b'), "a?b");
}

} // namespace
