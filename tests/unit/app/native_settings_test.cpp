#include "app/native_settings.h"
#include "tests/unit/platform/support/registry_values.h"

#include <gtest/gtest.h>

namespace {

QString Read(const char *root)
{
    return ReadNativeSetting(QLatin1String(root) + QStringLiteral("\\Software\\TORVAN\\KTR"),
                             QStringLiteral("Language"),
                             QStringLiteral("English"));
}

// The same key under another root is another key.
TEST(NativeSettings, AreThoseOfTheMachine)
{
    contract::RegistryValues values;
    values.SetText("Software\\TORVAN\\KTR", "Language", "Danish");
    EXPECT_EQ(Read("HKEY_LOCAL_MACHINE"), QStringLiteral("Danish"));
    EXPECT_EQ(Read("HKEY_CURRENT_USER"), QStringLiteral("English"));
}

} // namespace
