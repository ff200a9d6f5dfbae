#include "controller/uninstall_mgr.h"

#include <QMetaType>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace {

std::vector<int> Codes(const QVariantList &reasons)
{
    std::vector<int> codes;
    for (const QVariant &reason : reasons) {
        EXPECT_EQ(reason.userType(), static_cast<int>(QMetaType::Int));
        codes.push_back(reason.toInt());
    }
    return codes;
}

TEST(ReasonList, HoldsEveryReasonOnceAndOtherReasonsLast)
{
    CUninstallMgr manager;
    for (int call = 0; call < 100; ++call) {
        std::vector<int> codes = Codes(manager.getReasonList());
        ASSERT_EQ(codes.size(), 4U);
        EXPECT_EQ(codes.back(), 4);
        std::sort(codes.begin(), codes.end());
        EXPECT_EQ(codes, (std::vector<int>{1, 2, 3, 4}));
    }
}

// 600 draws of six orders: each comes 100 times on average, and one that comes fewer than 40 or
// more than 180 times happens once in a hundred million runs of an even shuffle.
TEST(ReasonList, EveryOrderComesAboutEquallyOften)
{
    std::map<std::vector<int>, int> seen;
    CUninstallMgr manager;
    for (int call = 0; call < 600; ++call) {
        ++seen[Codes(manager.getReasonList())];
    }
    ASSERT_EQ(seen.size(), 6U);
    for (const auto &order : seen) {
        EXPECT_GT(order.second, 40);
        EXPECT_LT(order.second, 180);
    }
}

} // namespace
