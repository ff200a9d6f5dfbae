#include "services/config/config_key.h"

#include <gtest/gtest.h>

namespace {

struct Split
{
    const char *key;
    const char *name;
    const char *suffix;
};

TEST(ConfigKey, IsSplitAtItsFirstDoubleUnderscore)
{
    for (const Split &split : {Split{"coupon_text", "coupon_text", ""},
                               Split{"coupon_text__de", "coupon_text", "de"},
                               Split{"a__b__a__c", "a", "b__c"},
                               Split{"a__a__a__", "a", ""},
                               Split{"a__ba__c", "a", "bc"},
                               Split{"a__b__c", "a", "b__c"},
                               Split{"a__", "a", ""},
                               Split{"__x", "", "x"},
                               Split{"__x__y", "", "xy"},
                               Split{"a___b", "a", "_b"},
                               Split{"a_b", "a_b", ""},
                               Split{"A__b__a__c", "A", "b__a__c"},
                               Split{"", "", ""},
                               Split{"__", "", ""}}) {
        const ConfigKey key = SplitConfigKey(QString::fromLatin1(split.key));
        EXPECT_EQ(key.name, QString::fromLatin1(split.name)) << split.key;
        EXPECT_EQ(key.suffix, QString::fromLatin1(split.suffix)) << split.key;
    }
}

} // namespace
