#include "app/program.h"

#include <cstdlib>

// Entry point of a program without console. The arguments are those of the C run-time, as a program
// with a console would get them.
extern "C" int __stdcall WinMain(void * /*instance*/,
                                 void * /*previous*/,
                                 char * /*line*/,
                                 int /*show*/)
{
    return RunProgram(__argc, __argv);
}
