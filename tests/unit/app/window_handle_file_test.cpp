#include "app/window_handle_file.h"
#include "platform/text.h"
#include "tests/unit/platform/support/system.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <sstream>

namespace {

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
    // HwndFilePathOf has no length limit; only reading the program's path has one.
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

class WindowHandleFile : public testing::Test
{
protected:
    void TearDown() override
    {
        RemoveWindowHandleFile();
    }

    /// Creates a window, publishes its handle and returns the handle.
    quint64 Publish()
    {
        engine_.loadData("import QtQuick.Window 2.14\nWindow {}");
        PublishWindowHandle(engine_);
        return qobject_cast<QQuickWindow *>(engine_.rootObjects().value(0))->winId();
    }

    const std::filesystem::path path_ = contract::ExecutablePath().parent_path() / "hwndFile.ini";
    QQmlApplicationEngine engine_;
};

TEST_F(WindowHandleFile, LiesBesideTheExecutable)
{
    EXPECT_EQ(GetHwndFilePath(), path_.string());
}

TEST_F(WindowHandleFile, HoldsTheHandleInEightBytesAndGoesAway)
{
    // An older and longer file is replaced, not overwritten in part.
    contract::WriteFile(path_, "twelve bytes");
    quint64 handle = Publish();
    ASSERT_NE(handle, 0U);
    std::string littleEndian;
    for (int byte = 0; byte < 8; ++byte) {
        littleEndian += static_cast<char>(handle & 0xFFU);
        handle >>= 8U;
    }
    EXPECT_EQ(contract::ReadFile(path_), littleEndian);
    RemoveWindowHandleFile();
    EXPECT_FALSE(std::filesystem::exists(path_));
    RemoveWindowHandleFile();
}

TEST_F(WindowHandleFile, WhatCannotBeWrittenReadOrDeletedDoesNoHarm)
{
    ASSERT_TRUE(std::filesystem::create_directories(path_ / "occupied"));
    Publish();
    ActivateRunningInstance();
    RemoveWindowHandleFile();
    EXPECT_TRUE(std::filesystem::is_directory(path_));
    std::filesystem::remove_all(path_);
}

TEST_F(WindowHandleFile, IsNotWrittenWithoutAWindow)
{
    PublishWindowHandle(engine_);
    EXPECT_FALSE(std::filesystem::exists(path_));
}

} // namespace
