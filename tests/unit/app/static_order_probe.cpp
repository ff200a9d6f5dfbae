#include <QFile>

#include <cstdio>

namespace {

// Constant-initialised: a dynamic initialiser would run after the load and reset them.
int loads = 0;
bool resourcesThereAtTheLoad = false;

bool ResourcesThere()
{
    return QFile::exists(":/static_order.qrc");
}

} // namespace

// Called by the telemetry library of this program while it is being loaded.
extern "C" __attribute__((visibility("default"))) void NoteTelemetryLoad();
extern "C" void NoteTelemetryLoad()
{
    ++loads;
    resourcesThereAtTheLoad = ResourcesThere();
}

int main()
{
    std::printf("loads before main: %d, resources at the load: %s, in main: %s\n",
                loads,
                resourcesThereAtTheLoad ? "there" : "not yet",
                ResourcesThere() ? "there" : "missing");
    return loads == 1 && !resourcesThereAtTheLoad && ResourcesThere() ? 0 : 1;
}
