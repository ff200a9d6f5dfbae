#include "app/process_utils.h"

#include "platform/module_path.h"
#include "platform/processes.h"
#include "platform/text.h"

#include <QDir>

#include <array>

namespace {

constexpr std::array<const wchar_t *, 1> kTelemetryHelpers = {L"SkyrelWrapExe.exe"};

bool RunsFrom(const platform::OpenedProcess &process, const std::wstring &dir)
{
    const auto path = process.ImagePath(platform::kPathCapacity);
    return path && platform::EqualsIgnoringCase(DirectoryOf(*path), dir);
}

} // namespace

std::wstring DirectoryOf(const std::wstring &path)
{
    const std::wstring separators = {platform::kNativeSeparatorWide, L'/'};
    const std::size_t cut = path.find_last_of(separators);
    return cut == std::wstring::npos ? std::wstring() : path.substr(0, cut);
}

std::wstring GetModuleDirW()
{
    return DirectoryOf(platform::ExecutablePathWide(platform::kPathCapacity));
}

bool KillProcessInDir(const std::wstring &name, const std::wstring &dir)
{
    bool terminated = false;
    platform::VisitProcesses([&](const platform::ProcessEntry &entry) {
        if (!platform::EqualsIgnoringCase(entry.imageName, name)) {
            return;
        }
        const platform::OpenedProcess process = platform::OpenedProcess::Open(entry.id);
        if (RunsFrom(process, dir)) {
            process.Terminate(0);
            terminated = true;
        }
    });
    return terminated;
}

void KillTelemetryHelper()
{
    const std::wstring moduleDir = GetModuleDirW();
    for (const wchar_t *imageName : kTelemetryHelpers) {
        KillProcessInDir(imageName, moduleDir);
    }
}

void LaunchCleanupCommand(const QString &command)
{
    const QByteArray ansi = command.toLocal8Bit();
    // A character outside the code page would be replaced, and the script would get another path.
    if (QString::fromLocal8Bit(ansi) != command) {
        return;
    }
    platform::LaunchDetached(
        ansi.toStdString(), QDir::tempPath().toLocal8Bit().toStdString(), kCleanupLaunch);
}
