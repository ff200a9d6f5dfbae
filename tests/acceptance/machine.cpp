#include "tests/acceptance/machine.h"

#include <cstdio>
#include <windows.h>

namespace {

std::string WindowsVersion()
{
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    // GetVersionEx reports an older version to programs without a manifest.
    auto *const entry = ::GetProcAddress(::GetModuleHandleA("ntdll"), "RtlGetVersion");
    using GetVersion = LONG WINAPI(OSVERSIONINFOW *);
    reinterpret_cast<GetVersion *>(reinterpret_cast<void *>(entry))(&version);
    DWORD revision = 0;
    DWORD size = sizeof revision;
    const char *key = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    ::RegGetValueA(HKEY_LOCAL_MACHINE, key, "UBR", RRF_RT_REG_DWORD, nullptr, &revision, &size);
    const std::string wine = WineVersion();
    return std::to_string(version.dwMajorVersion) + '.' + std::to_string(version.dwMinorVersion) +
           ", build " + std::to_string(version.dwBuildNumber) + '.' + std::to_string(revision) +
           (wine.empty() ? "" : ", reported by Wine " + wine);
}

std::string CodePages()
{
    return std::to_string(::GetACP()) + " (ANSI), " + std::to_string(::GetOEMCP()) + " (OEM)";
}

std::string Scale()
{
    HDC screen = ::GetDC(nullptr);
    const int scale = ::GetDeviceCaps(screen, LOGPIXELSX) * 100 / 96;
    ::ReleaseDC(nullptr, screen);
    return std::to_string(scale) + " %";
}

std::string FontState(const std::string &name)
{
    bool found = false;
    LOGFONTA font = {};
    font.lfCharSet = DEFAULT_CHARSET;
    name.copy(font.lfFaceName, LF_FACESIZE - 1);
    HDC screen = ::GetDC(nullptr);
    ::EnumFontFamiliesExA(
        screen,
        &font,
        [](const LOGFONTA *, const TEXTMETRICA *, DWORD, LPARAM result) {
            *reinterpret_cast<bool *>(result) = true;
            return 0;
        },
        reinterpret_cast<LPARAM>(&found),
        0);
    ::ReleaseDC(nullptr, screen);
    return name + (found ? " found" : " missing");
}

std::string Date()
{
    SYSTEMTIME now = {};
    ::GetSystemTime(&now);
    char text[64] = {};
    std::snprintf(text,
                  sizeof text,
                  "%04d-%02d-%02d %02d:%02d UTC",
                  now.wYear,
                  now.wMonth,
                  now.wDay,
                  now.wHour,
                  now.wMinute);
    return text;
}

} // namespace

std::string WineVersion()
{
    using Version = const char *CDECL();
    auto *const entry = ::GetProcAddress(::GetModuleHandleA("ntdll"), "wine_get_version");
    return entry == nullptr ? std::string()
                            : reinterpret_cast<Version *>(reinterpret_cast<void *>(entry))();
}

std::vector<std::pair<std::string, std::string>> MachineFacts()
{
    return {{"Windows", WindowsVersion()},
            {"Code page", CodePages()},
            {"Scale", Scale()},
            {"Fonts", FontState("Segoe UI") + ", " + FontState("Microsoft YaHei")},
            {"Date", Date()}};
}
