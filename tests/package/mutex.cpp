// Uses the single-instance mutex as another process.
//   mutex probe NAME   exits with 1 when it exists, else with 0
//   mutex hold NAME    owns it until standard input ends; prints "held" once it does

#include <cstdio>
#include <cstring>
#include <windows.h>

int main(int argc, char **argv)
{
    if (argc != 3) {
        return 2;
    }
    if (std::strcmp(argv[1], "probe") == 0) {
        auto *const probed = ::OpenMutexA(SYNCHRONIZE, FALSE, argv[2]);
        if (probed == nullptr) {
            return 0;
        }
        ::CloseHandle(probed);
        return 1;
    }
    auto *const held = ::CreateMutexA(nullptr, TRUE, argv[2]);
    if (held == nullptr) {
        return 2;
    }
    if (::GetLastError() != ERROR_SUCCESS) {
        ::CloseHandle(held);
        return 2;
    }
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    ::ReleaseMutex(held);
    ::CloseHandle(held);
    return 0;
}
