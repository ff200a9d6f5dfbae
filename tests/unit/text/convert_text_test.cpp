#include "services/text/convert_text.h"

#include <QTextCodec>

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

// A letter of Latin-1, and one of no 8-bit code page that has it.
const QString kText = QString::fromUtf8("\xC3\xA9\xE6\x97\xA5");

TEST(ConvertText, EncodingNamesIgnoreCase)
{
    for (const char *name : {"Latin", "LATIN", "latin", "lAtIn"}) {
        EXPECT_EQ(ConvertText(kText, name), "\xE9?") << name;
    }
    for (const char *name : {"Local8Bit", "LOCAL8BIT", "local8bit"}) {
        EXPECT_EQ(ConvertText(kText, name), std::string(kText.toLocal8Bit().constData())) << name;
    }
}

TEST(ConvertText, Local8BitIsTheSystemsOwn)
{
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    EXPECT_EQ(ConvertText(QString::fromUtf8("\xE2\x82\xAC"), "Local8Bit"), "\xA4");
    EXPECT_EQ(ConvertText(QString::fromUtf8("\xE2\x82\xAC"), "Latin"), "?");
    QTextCodec::setCodecForLocale(before);
}

TEST(ConvertText, EverythingElseIsUtf8)
{
    for (const char *name : {"Utf8", "utf8", "UTF8", "Latin1", "Latin ", "klingon", ""}) {
        EXPECT_EQ(ConvertText(kText, name), "\xC3\xA9\xE6\x97\xA5") << name;
    }
}

TEST(ConvertText, StopsAtTheFirstZeroInEveryEncoding)
{
    const QString text = QString("ab") + QChar(0) + "cd";
    for (const char *name : {"Utf8", "Latin", "Local8Bit"}) {
        EXPECT_EQ(ConvertText(text, name), "ab") << name;
        EXPECT_EQ(ConvertText(QString(QChar(0)), name), "") << name;
        EXPECT_EQ(ConvertText(QString(), name), "") << name;
    }
}

} // namespace
