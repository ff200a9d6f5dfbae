// The single-instance mutex as another process meets it.
//   mutex probe NAME   status 1 when it exists, else 0
//   mutex hold NAME    owns it until standard input ends; says "held" when it does

#include <cstdio>
#include <cstring>
#include <windows.h>

int main(int argc, char **argv)
{
    if (argc != 3) {
        return 2;
    }
    if (std::strcmp(argv[1], "probe") == 0) {
        return ::OpenMutexA(SYNCHRONIZE, FALSE, argv[2]) != nullptr ? 1 : 0;
    }
    if (::CreateMutexA(nullptr, TRUE, argv[2]) == nullptr || ::GetLastError() != ERROR_SUCCESS) {
        return 2;
    }
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
