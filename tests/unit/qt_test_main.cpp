#include <QGuiApplication>

#include <gmock/gmock.h>

// Tests of Qt code run with an application object, without a display.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Otherwise an engine creates a folder in the user's cache folder.
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
