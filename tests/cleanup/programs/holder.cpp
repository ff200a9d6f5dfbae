// Runs until standard input ends. With an argument it holds that file or folder open as most
// programs do: no other program may write to it or remove it. It prints "ready" first.

#include <cstdio>
#include <cwchar>
#include <windows.h>

int wmain(int argc, wchar_t **argv)
{
    if (argc > 1 && ::CreateFileW(argv[1],
                                  GENERIC_READ,
                                  FILE_SHARE_READ,
                                  nullptr,
                                  OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS,
                                  nullptr) == INVALID_HANDLE_VALUE) {
        return 2;
    }
    std::puts("ready");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
