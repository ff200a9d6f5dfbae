#include "controller/uninstall_mgr.h"

#include <QMetaType>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace {

// 600 draws of six orders: each comes 100 times on average. With an even shuffle, one of them comes
// 40 times or fewer, or 180 times or more, in fewer than one of 10^11 runs.
TEST(ReasonList, HoldsEveryReasonOnceInAnyOrderAndOtherReasonsLast)
{
    std::map<std::vector<int>, int> seen;
    CUninstallMgr manager;
    for (int call = 0; call < 600; ++call) {
        std::vector<int> codes;
        for (const QVariant &reason : manager.getReasonList()) {
            EXPECT_EQ(reason.userType(), static_cast<int>(QMetaType::Int));
            codes.push_back(reason.toInt());
        }
        ++seen[codes];
    }
    std::vector<int> order = {1, 2, 3, 4};
    EXPECT_EQ(seen.size(), 6U);
    do {
        EXPECT_GT(seen[order], 40) << testing::PrintToString(order);
        EXPECT_LT(seen[order], 180) << testing::PrintToString(order);
    } while (std::next_permutation(order.begin(), order.end() - 1));
}

} // namespace
