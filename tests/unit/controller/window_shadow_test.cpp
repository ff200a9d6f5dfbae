#include "controller/uninstall_mgr.h"
#include "controller/window_shadow.h"
#include "testkit/fakes/fake_environment.h"

#include <gtest/gtest.h>

namespace {

struct Kernel
{
    const char *version;
    bool qualifies;
};

// The system setting is read only if the kernel version qualifies; then it decides.
TEST(WindowShadow, TheKernelDecidesAndThenTheSystem)
{
    for (const Kernel &kernel : {Kernel{"", false},
                                 {"...", false},
                                 {"6.3.9600", false},
                                 {"6.1.7601", false},
                                 {"9", false},
                                 {"9.9.10239", false},
                                 {"6.3.10240", true},
                                 {"6.10240.1", false},
                                 {"10", true},
                                 {"10.0.19045", true},
                                 {".10.0", true},
                                 {"11.0.1", true},
                                 {"6.1.0-13-amd64", false},
                                 {"text", false}}) {
        SCOPED_TRACE(kernel.version);
        EXPECT_EQ(KernelQualifiesForShadow(kernel.version), kernel.qualifies);
        for (const bool dropShadow : {false, true}) {
            FakeEnvironment fakeEnvironment;
            fakeEnvironment.kernelVersion = kernel.version;
            fakeEnvironment.dropShadow = dropShadow;
            EXPECT_EQ(CUninstallMgr(fakeEnvironment.Environment()).showWindowShadow(),
                      kernel.qualifies && dropShadow);
            EXPECT_EQ(fakeEnvironment.Asked().size(), kernel.qualifies ? 1 : 0);
        }
    }
}

} // namespace
