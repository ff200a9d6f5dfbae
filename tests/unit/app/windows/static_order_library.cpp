#include <windows.h>

// Calls a function of the program while the program loads this library.
__attribute__((constructor)) static void TellTheProgram()
{
    const auto note = ::GetProcAddress(::GetModuleHandleW(nullptr), "NoteTelemetryLoad");
    if (note != nullptr) {
        note();
    }
}
