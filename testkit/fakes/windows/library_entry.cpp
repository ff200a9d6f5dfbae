#include "testkit/fakes/library_load.h"

#include <array>
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        std::array<wchar_t, 4096> buffer = {};
        const DWORD length =
            ::GetModuleFileNameW(instance, buffer.data(), static_cast<DWORD>(buffer.size()));
        fake::OnLoad(std::wstring(buffer.data(), length));
    }
    return TRUE;
}
