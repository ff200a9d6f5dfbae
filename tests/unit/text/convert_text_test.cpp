#include "services/text/convert_text.h"

#include <QTextCodec>

#include <gtest/gtest.h>

namespace {

struct Encoding
{
    const char *name;
    const char *converted;
};

TEST(ConvertText, TheNameOfTheEncodingIgnoresCaseAndAnyOtherNameMeansUtf8)
{
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    // A letter of both 8-bit encodings, one of the local one only, and one of neither.
    const QString letters = "\xC3\xA9\xE2\x82\xAC\xE6\x97\xA5";
    const char *const utf8 = "\xC3\xA9\xE2\x82\xAC\xE6\x97\xA5";
    for (const Encoding &encoding : {Encoding{"Latin", "\xE9??"},
                                     {"LATIN", "\xE9??"},
                                     {"lAtIn", "\xE9??"},
                                     {"Local8Bit", "\xE9\xA4?"},
                                     {"LOCAL8BIT", "\xE9\xA4?"},
                                     {"local8bit", "\xE9\xA4?"},
                                     {"Utf8", utf8},
                                     {"UTF8", utf8},
                                     {"Latin1", utf8},
                                     {"Latin ", utf8},
                                     {"klingon", utf8},
                                     {"", utf8}}) {
        EXPECT_EQ(ConvertText(letters, encoding.name), encoding.converted) << encoding.name;
        // It stops at the first NUL in every encoding.
        EXPECT_EQ(ConvertText(QString("ab") + QChar(0) + "cd", encoding.name), "ab");
        EXPECT_EQ(ConvertText(QChar(0), encoding.name), "");
        EXPECT_EQ(ConvertText(QString(), encoding.name), "");
    }
    QTextCodec::setCodecForLocale(before);
}

} // namespace
