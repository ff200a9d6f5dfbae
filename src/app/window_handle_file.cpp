#include "app/window_handle_file.h"

#include "platform/files.h"
#include "platform/module_path.h"
#include "platform/text.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QtEndian>

#include <array>
#include <fstream>

namespace {

using HandleBytes = std::array<char, sizeof(platform::WindowHandle)>;

platform::WindowHandle PublishedWindowHandle()
{
    std::ifstream file(GetHwndFilePath(), std::ios::binary);
    return ReadWindowHandle(file);
}

} // namespace

std::string HwndFilePathOf(const std::string &executable)
{
    const std::string directory =
        executable.substr(0, executable.rfind(platform::kNativeSeparator));
    return directory + platform::kNativeSeparator + "hwndFile.ini";
}

std::string GetHwndFilePath()
{
    // An inexact path may name another folder: do not write or delete there.
    if (!platform::IsExecutableFolderExact(platform::kPathCapacity)) {
        return {};
    }
    return HwndFilePathOf(platform::ExecutablePath(platform::kPathCapacity));
}

void PublishWindowHandle(const QQmlApplicationEngine &engine)
{
    const QList<QObject *> rootObjects = engine.rootObjects();
    if (rootObjects.isEmpty()) {
        return;
    }
    auto *const window = qobject_cast<QQuickWindow *>(rootObjects.first());
    HandleBytes bytes = {};
    qToLittleEndian<platform::WindowHandle>(window->winId(), bytes.data());
    std::ofstream file(GetHwndFilePath(), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), bytes.size());
}

platform::WindowHandle ReadWindowHandle(std::istream &file)
{
    HandleBytes bytes = {};
    file.read(bytes.data(), bytes.size());
    const bool complete = file.gcount() == static_cast<std::streamsize>(bytes.size());
    return complete ? qFromLittleEndian<platform::WindowHandle>(bytes.data()) : 0;
}

void ActivateRunningInstance()
{
    const platform::WindowHandle window = PublishedWindowHandle();
    if (window != 0 && platform::WindowExists(window)) {
        platform::BringToFront(window);
    }
}

void RemoveWindowHandleFile()
{
    platform::RemoveFile(GetHwndFilePath());
}
