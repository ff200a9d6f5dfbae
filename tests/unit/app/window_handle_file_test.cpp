#include "app/window_handle_file.h"
#include "platform/text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <sstream>

namespace {

class WindowHandleFile : public testing::Test
{
protected:
    QByteArray Read()
    {
        QFile file(path_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void TearDown() override
    {
        RemoveWindowHandleFile();
    }

    const QString path_ = QCoreApplication::applicationDirPath() + "/hwndFile.ini";
};

TEST(WindowHandleFilePath, ReplacesTheNameOfTheExecutable)
{
    const std::string separator(1, platform::kNativeSeparator);
    const std::string name = separator + "hwndFile.ini";
    EXPECT_EQ(HwndFilePathOf(separator + "a" + separator + "b.exe"), separator + "a" + name);
    EXPECT_EQ(HwndFilePathOf(separator + "b.exe"), name);
    EXPECT_EQ(HwndFilePathOf("b.exe"), "b.exe" + name);
    EXPECT_EQ(HwndFilePathOf(""), name);
    const char other = platform::kNativeSeparator == '/' ? '\\' : '/';
    EXPECT_EQ(HwndFilePathOf(separator + "a" + other + "b.exe"), name);
    // Composed without a limit: only what is read has one.
    const std::string deep = separator + std::string(255, 'd');
    EXPECT_EQ(HwndFilePathOf(deep + separator + "b"), deep + name);
}

TEST(WindowHandleInAFile, IsTheFirstEightBytesAndNoneWhenThereAreFewer)
{
    const std::string content("\x01\x02\0\0\0\0\0\xFE\xFF", 9);
    for (std::size_t size = 0; size <= content.size(); ++size) {
        std::istringstream file(content.substr(0, size));
        EXPECT_EQ(ReadWindowHandle(file), size < 8 ? 0U : 0xFE00000000000201U) << size;
    }
}

TEST_F(WindowHandleFile, LiesBesideTheExecutable)
{
    EXPECT_EQ(QString::fromLocal8Bit(GetHwndFilePath().c_str()), QDir::toNativeSeparators(path_));
}

TEST_F(WindowHandleFile, HoldsTheHandleInEightBytesAndGoesAway)
{
    // An older and longer file is replaced, not overwritten in part.
    QFile old(path_);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("twelve bytes");
    old.close();

    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick.Window 2.14\nWindow {}");
    ASSERT_EQ(engine.rootObjects().size(), 1);
    PublishWindowHandle(engine);

    quint64 handle = qobject_cast<QQuickWindow *>(engine.rootObjects().first())->winId();
    ASSERT_NE(handle, 0U);
    QByteArray littleEndian;
    for (int byte = 0; byte < 8; ++byte) {
        littleEndian.append(static_cast<char>(handle & 0xFFU));
        handle >>= 8U;
    }
    EXPECT_EQ(Read(), littleEndian);

    RemoveWindowHandleFile();
    EXPECT_FALSE(QFile::exists(path_));
    RemoveWindowHandleFile();
}

TEST_F(WindowHandleFile, WhatCannotBeWrittenReadOrDeletedDoesNoHarm)
{
    ASSERT_TRUE(QDir().mkpath(path_ + "/occupied"));
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick.Window 2.14\nWindow {}");
    PublishWindowHandle(engine);
    ActivateRunningInstance();
    RemoveWindowHandleFile();
    EXPECT_TRUE(QFileInfo(path_).isDir());
    QDir(path_).removeRecursively();
}

TEST_F(WindowHandleFile, IsNotWrittenWithoutAWindow)
{
    const QQmlApplicationEngine engine;
    PublishWindowHandle(engine);
    EXPECT_FALSE(QFile::exists(path_));
}

} // namespace
