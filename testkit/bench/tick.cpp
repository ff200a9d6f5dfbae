#include "controller/task_list.h"
#include "controller/uninstall_mgr.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" char **environ; // NOLINT(readability-redundant-declaration)

namespace {

constexpr std::size_t kChunk = 4096;

double Seconds(timeval time)
{
    constexpr double kMicroseconds = 1e6;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / kMicroseconds;
}

double ProcessorTime(int who)
{
    rusage usage = {};
    getrusage(who, &usage);
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

// Peak resident memory in KB. getrusage would include the process before exec.
long PeakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            long peak = 0;
            status >> peak;
            return peak;
        }
    }
    return 0;
}

// The same tasklist query as the program's, in the cheapest way.
bool RunBareQuery()
{
    std::array<std::string_view, 6> words = {
        "tasklist", "/NH", "/FO", "CSV", "/FI", "IMAGENAME eq uninstall.exe"};
    std::array<char *, words.size() + 1> arguments = {};
    for (std::size_t index = 0; index < words.size(); ++index) {
        arguments.at(index) = const_cast<char *>(words.at(index).data());
    }
    std::array<int, 2> ends = {};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    posix_spawn_file_actions_t actions = {};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    pid_t child = 0;
    const bool started =
        posix_spawnp(&child, words[0].data(), &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    std::array<char, kChunk> chunk = {};
    ssize_t all = 0;
    for (ssize_t got = 0; (got = read(ends[0], chunk.data(), chunk.size())) > 0;) {
        all += got;
    }
    close(ends[0]);
    int status = 0;
    return started && waitpid(child, &status, 0) == child && all > 0;
}

} // namespace

// Runs the tasklist query COUNT times and prints the cost of one: microseconds of processor time of
// this process and of its children; then its peak memory in KB. "bare" runs the query in the
// cheapest way, "query" with Qt as the program does, "tick" within a tick of the progress timer.
// Status 1 if "bare" reads nothing or one of the others does not find the uninstaller.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const std::string_view mode = argc > 1 ? argv[1] : "";
    const int count = argc > 2 ? std::atoi(argv[2]) : 0;
    if ((mode != "bare" && mode != "query" && mode != "tick") || count < 1) {
        std::fprintf(stderr, "usage: measure_tick bare|query|tick COUNT\n");
        return 2;
    }
    CUninstallMgr manager;
    const auto once = [&mode, &manager] {
        if (mode == "bare") {
            return RunBareQuery();
        }
        if (mode == "query") {
            return IsInTaskList(QStringLiteral("uninstall.exe"), TaskListQuery());
        }
        QMetaObject::invokeMethod(&manager, "slotTimeOut", Qt::DirectConnection);
        return manager.getValProgress() < 100;
    };
    if (!once()) { // a warm-up
        return 1;
    }
    const double selfBefore = ProcessorTime(RUSAGE_SELF);
    const double childrenBefore = ProcessorTime(RUSAGE_CHILDREN);
    for (int number = 0; number < count; ++number) {
        if (!once()) {
            return 1;
        }
    }
    constexpr double kMicroseconds = 1e6;
    std::printf("%.1f %.1f %ld\n",
                (ProcessorTime(RUSAGE_SELF) - selfBefore) * kMicroseconds / count,
                (ProcessorTime(RUSAGE_CHILDREN) - childrenBefore) * kMicroseconds / count,
                PeakMemory());
    return 0;
}
