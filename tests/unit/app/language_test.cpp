#include "app/language.h"

#include <QFont>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {

TEST(ApplicationFont, IsFourteenPixelsOfTheInterfaceFamily)
{
    const QFont before = QGuiApplication::font();
    ApplyApplicationFont();
    EXPECT_EQ(QGuiApplication::font().pixelSize(), 14);
    EXPECT_EQ(QGuiApplication::font().family(), QStringLiteral("Segoe UI"));
    EXPECT_EQ(QGuiApplication::font().weight(), before.weight());
    QGuiApplication::setFont(before);
}

} // namespace
