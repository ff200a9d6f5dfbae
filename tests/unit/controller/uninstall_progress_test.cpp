#include "controller/uninstall_progress.h"

#include <gtest/gtest.h>

namespace {

struct Step
{
    int before;
    bool running;
    int after;
};

// No value is clamped.
TEST(ProgressStep, AddsOneWhileTheUninstallerRunsExceptAt99AndIs100Afterwards)
{
    for (const Step &step : {Step{0, true, 1},
                             {1, true, 2},
                             {50, true, 51},
                             {97, true, 98},
                             {98, true, 99},
                             {99, true, 99},
                             {100, true, 101},
                             {150, true, 151},
                             {-5, true, -4},
                             {0, false, 100},
                             {42, false, 100},
                             {99, false, 100},
                             {150, false, 100}}) {
        EXPECT_EQ(NextProgress(step.before, step.running), step.after)
            << step.before << (step.running ? " running" : " gone");
    }
}

} // namespace
