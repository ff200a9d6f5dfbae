#include "services/config/config_key.h"

#include <gtest/gtest.h>

namespace {

struct Split
{
    const char *key;
    const char *name;
    const char *suffix;
};

// The suffix is the key without every "name__", not only the leading one.
TEST(ConfigKey, IsSplitAtItsFirstDoubleUnderscore)
{
    for (const Split &split : {Split{"coupon_text", "coupon_text", ""},
                               {"coupon_text__de", "coupon_text", "de"},
                               {"a__b__a__c", "a", "b__c"},
                               {"a__a__a__", "a", ""},
                               {"a__ba__c", "a", "bc"},
                               {"a__b__c", "a", "b__c"},
                               {"a__", "a", ""},
                               {"__x", "", "x"},
                               {"__x__y", "", "xy"},
                               {"a___b", "a", "_b"},
                               {"a_b", "a_b", ""},
                               {"A__b__a__c", "A", "b__a__c"},
                               {"", "", ""},
                               {"__", "", ""}}) {
        const ConfigKey key = SplitConfigKey(split.key);
        EXPECT_EQ(key.name, split.name) << split.key;
        EXPECT_EQ(key.suffix, split.suffix) << split.key;
    }
}

} // namespace
