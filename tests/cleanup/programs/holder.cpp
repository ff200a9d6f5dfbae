// A program that runs, and with an argument has that file open as most programs do: nobody may
// write to it or remove it. It says so and lives until standard input ends.

#include <cstdio>
#include <cwchar>
#include <windows.h>

int wmain(int argc, wchar_t **argv)
{
    if (argc > 1 &&
        ::CreateFileW(argv[1], GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr) ==
            INVALID_HANDLE_VALUE) {
        return 2;
    }
    std::puts("ready");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
