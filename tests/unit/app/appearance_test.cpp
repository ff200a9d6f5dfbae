#include "app/appearance.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace {

TEST(LinkColour, IsTheLinkRoleOfThePaletteAndNothingElse)
{
    const QPalette before = QGuiApplication::palette();
    QPalette expected = before;
    expected.setColor(QPalette::Link, QColor(0x03, 0x7d, 0xff));
    ASSERT_NE(before, expected);
    ApplyLinkColour();
    EXPECT_EQ(QGuiApplication::palette(), expected);
    QGuiApplication::setPalette(before);
}

} // namespace
