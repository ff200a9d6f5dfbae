#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"

#include <QMetaObject>

#include <gtest/gtest.h>
#include <malloc.h>

namespace {

// Bytes that are allocated at the moment. A sanitizer has an allocator of its own, of which this
// says nothing; it tells leaks itself.
std::size_t Allocated()
{
    return ::mallinfo2().uordblks;
}

TEST(UninstallLongRun, AHundredThousandTicksKeepNothing)
{
    constexpr int kTicks = 100000;
    FakeEnvironment world;
    UninstallEnvironment environment = world.Environment();
    environment.isProcessRunning = [](const QString &) {
        return true;
    };
    CUninstallMgr manager(environment);
    int changes = 0;
    QObject::connect(&manager, &CUninstallMgr::sigValProgressChanged, [&changes] { ++changes; });
    const auto tick = [&manager] {
        QMetaObject::invokeMethod(&manager, "slotTimeOut", Qt::DirectConnection);
    };
    tick();
    const std::size_t before = Allocated();
    for (int count = 1; count < kTicks; ++count) {
        tick();
    }
    EXPECT_EQ(Allocated(), before);
    EXPECT_EQ(changes, kTicks);
    EXPECT_EQ(manager.getValProgress(), 99);
}

} // namespace
