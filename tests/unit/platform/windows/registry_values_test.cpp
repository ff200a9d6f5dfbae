#include "tests/unit/platform/support/registry_values.h"

#include "platform/registry.h"
#include "tests/unit/platform/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

using contract::RegistryValues;
using platform::RegistryKey;

bool Exists(HKEY root, const std::string &key)
{
    HKEY opened = nullptr;
    const bool exists = ::RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &opened) == ERROR_SUCCESS;
    ::RegCloseKey(opened);
    return exists;
}

class WindowsRegistryValues : public testing::Test
{
protected:
    // Opened before any value is given: it leads to the machine's own registry for good.
    WindowsRegistryValues()
    {
        ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Software", 0, KEY_READ, &machine_);
    }
    ~WindowsRegistryValues() override
    {
        ::RegCloseKey(machine_);
    }
    WindowsRegistryValues(const WindowsRegistryValues &) = delete;
    WindowsRegistryValues &operator=(const WindowsRegistryValues &) = delete;
    WindowsRegistryValues(WindowsRegistryValues &&) = delete;
    WindowsRegistryValues &operator=(WindowsRegistryValues &&) = delete;

    HKEY machine_ = nullptr;
};

TEST_F(WindowsRegistryValues, NeverReachTheMachinesOwn)
{
    const std::string name = contract::UniqueName("KtrContract");
    ASSERT_TRUE(Exists(machine_, "Microsoft"));
    {
        RegistryValues values;
        values.SetText("Software\\" + name, "Name", "text");
        EXPECT_EQ(RegistryKey::OpenLocalMachine("Software\\" + name).Text("Name"), "text");
        EXPECT_FALSE(Exists(machine_, name));
        EXPECT_FALSE(RegistryKey::OpenLocalMachine("Software\\Microsoft")) << "none but ours";
    }
    EXPECT_FALSE(RegistryKey::OpenLocalMachine("Software\\" + name));
    EXPECT_TRUE(RegistryKey::OpenLocalMachine("Software\\Microsoft")) << "the machine's again";
}

TEST_F(WindowsRegistryValues, LeaveNothingBehind)
{
    const std::string key = "Software\\KtrContract_" + std::to_string(::GetCurrentProcessId());
    {
        RegistryValues values;
        values.Create("Software\\TORVAN");
        EXPECT_TRUE(Exists(HKEY_CURRENT_USER, key + "\\Software\\TORVAN"));
    }
    EXPECT_FALSE(Exists(HKEY_CURRENT_USER, key));
}

} // namespace
