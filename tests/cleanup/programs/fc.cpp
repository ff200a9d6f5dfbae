// "fc /b FIRST SECOND" with the exit codes of Windows: 0 equal, 1 different, 2 cannot be read. Like
// the one of Windows it prints messages. Wine's fc calls any two files equal.

#include <cstdio>
#include <cwchar>

int wmain(int argc, wchar_t **argv)
{
    if (argc != 4 || std::wcscmp(argv[1], L"/b") != 0) {
        return -1;
    }
    std::FILE *const first = ::_wfopen(argv[2], L"rb");
    std::FILE *const second = ::_wfopen(argv[3], L"rb");
    std::wprintf(L"Comparing files %ls and %ls\n", argv[2], argv[3]);
    if (first == nullptr || second == nullptr) {
        std::fputs("FC: cannot open a file - No such file or folder\n", stderr);
        return 2;
    }
    int byte = 0;
    do {
        byte = std::fgetc(first);
        if (byte != std::fgetc(second)) {
            std::puts("They differ.");
            return 1;
        }
    } while (byte != EOF);
    std::puts("FC: no differences encountered");
    return 0;
}
