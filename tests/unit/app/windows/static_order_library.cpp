#include <windows.h>

// Tells the program that loads it, in the moment of the load.
__attribute__((constructor)) static void TellTheProgram()
{
    const auto note = ::GetProcAddress(::GetModuleHandleW(nullptr), "NoteTelemetryLoad");
    if (note != nullptr) {
        note();
    }
}
