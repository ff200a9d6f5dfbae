// Linked into every program and library whose coverage is measured. gcov writes its counters in an
// exit handler; a process that calls exec, or ends without exit handlers, would lose them (a killed
// one does).
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
