#include <dlfcn.h>

// Calls a function of the program while the program loads this library.
__attribute__((constructor)) static void TellTheProgram()
{
    if (void *const note = dlsym(RTLD_DEFAULT, "NoteTelemetryLoad")) {
        reinterpret_cast<void (*)()>(note)();
    }
}
