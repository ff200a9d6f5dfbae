#include "controller/uninstall_mgr.h"
#include "controller/window_shadow.h"
#include "testkit/fakes/fake_environment.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Kernel
{
    const char *version;
    bool qualifies;
};

void PrintTo(const Kernel &kernel, std::ostream *out)
{
    *out << '"' << kernel.version << '"';
}

class WindowShadow : public testing::TestWithParam<Kernel>
{
};

TEST_P(WindowShadow, KernelQualifies)
{
    EXPECT_EQ(KernelQualifiesForShadow(QString::fromLatin1(GetParam().version)),
              GetParam().qualifies);
}

// A system that does not qualify is not even asked; one that does has the last word.
TEST_P(WindowShadow, SystemDecidesOnlyWhereTheKernelQualifies)
{
    for (const bool dropShadow : {false, true}) {
        FakeEnvironment world;
        world.kernelVersion = QString::fromLatin1(GetParam().version);
        world.dropShadow = dropShadow;
        CUninstallMgr manager(world.Environment());
        EXPECT_EQ(manager.showWindowShadow(), GetParam().qualifies && dropShadow);
        EXPECT_EQ(world.Asked().size(), GetParam().qualifies ? 1 : 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Table,
                         WindowShadow,
                         testing::Values(Kernel{"", false},
                                         Kernel{"...", false},
                                         Kernel{"6.3.9600", false},
                                         Kernel{"6.1.7601", false},
                                         Kernel{"9", false},
                                         Kernel{"9.9.10239", false},
                                         Kernel{"6.3.10240", true},
                                         Kernel{"6.10240.1", false},
                                         Kernel{"10", true},
                                         Kernel{"10.0.19045", true},
                                         Kernel{".10.0", true},
                                         Kernel{"11.0.1", true},
                                         Kernel{"6.1.0-13-amd64", false},
                                         Kernel{"text", false}));

} // namespace
