#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"

#include <QMetaObject>

#include <gtest/gtest.h>
#include <malloc.h>

namespace {

// The bytes that are allocated now. With a sanitizer this does not change, since the sanitizer has
// its own allocator; it reports leaks itself.
std::size_t Allocated()
{
    return ::mallinfo2().uordblks;
}

TEST(UninstallLongRun, AHundredThousandTicksKeepNoMemory)
{
    constexpr int kTicks = 100000;
    FakeEnvironment fakeEnvironment;
    UninstallEnvironment environment = fakeEnvironment.Environment();
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
