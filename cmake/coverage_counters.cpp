// Linked into every program and library whose runs are counted. The counters are written when a
// process ends through its exit handlers; one that becomes another program, or ends without them,
// would take what it has counted with it.
#include <unistd.h>

extern "C" {
#include <gcov.h> // C only

int __real_execve(const char *program, char *const *arguments, char *const *environment);
[[noreturn]] void __real__exit(int status);

int __wrap_execve(const char *program, char *const *arguments, char *const *environment)
{
    __gcov_dump();
    __gcov_reset();
    return __real_execve(program, arguments, environment);
}

[[noreturn]] void __wrap__exit(int status)
{
    __gcov_dump();
    __real__exit(status);
}
}
