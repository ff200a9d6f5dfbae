// Loads the library of its first argument, prints "loaded" and stays until standard input ends.
// Status 1 when the library does not load.

#include "platform/library.h"

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc < 2 || platform::LoadLibraryFile(argv[1]) == nullptr) {
        return 1;
    }
    std::puts("loaded");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
