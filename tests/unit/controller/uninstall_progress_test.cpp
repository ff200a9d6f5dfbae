#include "controller/uninstall_progress.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Step
{
    int before;
    bool running;
    int after;
};

void PrintTo(const Step &step, std::ostream *out)
{
    *out << step.before << (step.running ? " running" : " gone");
}

class ProgressStep : public testing::TestWithParam<Step>
{
};

TEST_P(ProgressStep, FollowsTheTable)
{
    EXPECT_EQ(NextProgress(GetParam().before, GetParam().running), GetParam().after);
}

// Running: one more, held at 99 only. Gone: 100 from wherever it stood. Nothing is clamped.
INSTANTIATE_TEST_SUITE_P(Table,
                         ProgressStep,
                         testing::Values(Step{0, true, 1},
                                         Step{1, true, 2},
                                         Step{50, true, 51},
                                         Step{97, true, 98},
                                         Step{98, true, 99},
                                         Step{99, true, 99},
                                         Step{100, true, 101},
                                         Step{150, true, 151},
                                         Step{-5, true, -4},
                                         Step{0, false, 100},
                                         Step{42, false, 100},
                                         Step{99, false, 100},
                                         Step{150, false, 100}));

} // namespace
