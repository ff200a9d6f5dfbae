#include <dlfcn.h>

// Tells the program that loads it, in the moment of the load.
__attribute__((constructor)) static void TellTheProgram()
{
    if (void *const note = dlsym(RTLD_DEFAULT, "NoteTelemetryLoad")) {
        reinterpret_cast<void (*)()>(note)();
    }
}
