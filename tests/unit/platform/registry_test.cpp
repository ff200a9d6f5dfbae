#include "platform/registry.h"
#include "tests/unit/platform/support/registry_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

using contract::RegistryValues;
using platform::RegistryKey;

constexpr const char *kKey = "Software\\TORVAN\\Contract";

class RegistryContract : public testing::Test
{
protected:
    // What a query gives with room for `capacity` bytes, or "(refused)".
    static std::string Query(const char *name, std::size_t capacity)
    {
        std::array<char, 300> buffer = {};
        const RegistryKey key = RegistryKey::OpenLocalMachine(kKey);
        if (!key.Query(name, buffer.data(), capacity)) {
            return "(refused)";
        }
        return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
    }

    RegistryValues values;
};

TEST_F(RegistryContract, AMissingKeyIsEmpty)
{
    const RegistryKey key = RegistryKey::OpenLocalMachine(kKey);
    EXPECT_FALSE(key);
    std::array<char, 10> buffer = {};
    EXPECT_FALSE(key.Query("Name", buffer.data(), buffer.size()));
    EXPECT_FALSE(key.Text("Name").has_value());
    EXPECT_FALSE(RegistryKey());
}

TEST_F(RegistryContract, KeysAndNamesIgnoreCase)
{
    values.SetText(kKey, "Name", "text");
    const RegistryKey key = RegistryKey::OpenLocalMachine("SOFTWARE\\torvan\\CONTRACT");
    ASSERT_TRUE(key);
    EXPECT_EQ(key.Text("nAME"), "text");
}

TEST_F(RegistryContract, AncestorsOfAKeyExist)
{
    values.Create(std::string(kKey) + "\\Below");
    EXPECT_TRUE(RegistryKey::OpenLocalMachine(kKey));
    EXPECT_TRUE(RegistryKey::OpenLocalMachine("Software\\TORVAN"));
    EXPECT_FALSE(RegistryKey::OpenLocalMachine("Software\\TORVAN\\Cont"));
}

TEST_F(RegistryContract, AQueryNeedsRoomForAllOfTheData)
{
    values.SetText(kKey, "Name", std::string(9, 'x'));
    EXPECT_EQ(Query("Name", 10), std::string(9, 'x'));
    EXPECT_EQ(Query("Name", 9), "(refused)");
    EXPECT_EQ(Query("Other", 10), "(refused)");
}

TEST_F(RegistryContract, DataWithoutATerminatingZeroStaysSo)
{
    values.Set(kKey, "Name", "abcd");
    std::array<char, 5> buffer = {'z', 'z', 'z', 'z', 'z'};
    EXPECT_TRUE(RegistryKey::OpenLocalMachine(kKey).Query("Name", buffer.data(), buffer.size()));
    EXPECT_EQ(std::string(buffer.data(), 4), "abcd");
    EXPECT_EQ(RegistryKey::OpenLocalMachine(kKey).Text("Name"), "abcd");
}

TEST_F(RegistryContract, TheTypeDoesNotMatter)
{
    constexpr int kBinary = 3;
    constexpr int kNumber = 4;
    values.Set(kKey, "Binary", std::string("ab\0", 3), kBinary);
    values.Set(kKey, "Number", std::string("EN\0\0", 4), kNumber);
    EXPECT_EQ(Query("Binary", 10), "ab");
    EXPECT_EQ(Query("Number", 10), "EN");
}

TEST_F(RegistryContract, NamesOfVariablesInATextStay)
{
    constexpr int kExpandable = 2;
    values.Set(kKey, "Name", std::string("%PATH%\0", 7), kExpandable);
    EXPECT_EQ(Query("Name", 10), "%PATH%");
    EXPECT_EQ(RegistryKey::OpenLocalMachine(kKey).Text("Name"), "%PATH%");
}

TEST_F(RegistryContract, AnEmptyValueIsThere)
{
    values.SetText(kKey, "Name", "");
    EXPECT_EQ(Query("Name", 10), "");
    EXPECT_EQ(RegistryKey::OpenLocalMachine(kKey).Text("Name"), "");
}

TEST_F(RegistryContract, TextHasNoLimit)
{
    const std::string text(5000, 'x');
    values.SetText(kKey, "Name", text);
    EXPECT_EQ(RegistryKey::OpenLocalMachine(kKey).Text("Name"), text);
}

TEST_F(RegistryContract, AKeyCanBeHandedOn)
{
    values.SetText(kKey, "Name", "text");
    RegistryKey first = RegistryKey::OpenLocalMachine(kKey);
    RegistryKey second = std::move(first);
    EXPECT_EQ(second.Text("Name"), "text");
    second = RegistryKey();
    EXPECT_FALSE(second);
}

} // namespace
