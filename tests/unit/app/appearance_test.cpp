#include "app/appearance.h"

#include <QColor>
#include <QDir>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QTemporaryDir>

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

TEST(WindowIcon, LiesBesideTheProgramDirectoryOrIsMissing)
{
    const QTemporaryDir product;
    // The program directory need not exist: only its parent is used.
    ApplyWindowIcon(product.filePath("bin"));
    EXPECT_TRUE(QGuiApplication::windowIcon().pixmap(16).isNull());

    ASSERT_TRUE(QDir(product.path()).mkdir("res"));
    QImage icon(16, 16, QImage::Format_RGB32);
    icon.fill(Qt::green);
    // Qt detects the format from the content, not from the file name.
    ASSERT_TRUE(icon.save(product.filePath("res/install_box.ico"), "PNG"));
    ApplyWindowIcon(product.filePath("bin"));
    const QImage shown = QGuiApplication::windowIcon().pixmap(16).toImage();
    ASSERT_EQ(shown.size(), icon.size());
    EXPECT_EQ(shown.pixelColor(8, 8), QColor(Qt::green));
    QGuiApplication::setWindowIcon(QIcon());
}

} // namespace
