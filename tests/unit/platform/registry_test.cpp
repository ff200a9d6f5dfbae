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

// What a query gives with a buffer of `capacity` bytes, or "(refused)".
std::string Query(const char *name, std::size_t capacity)
{
    std::array<char, 300> buffer = {};
    if (!RegistryKey::OpenLocalMachine(kKey).Query(name, buffer.data(), capacity)) {
        return "(refused)";
    }
    return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

std::optional<std::string> Text(const char *name)
{
    return RegistryKey::OpenLocalMachine(kKey).Text(name);
}

TEST(RegistryContract, AMissingKeyIsEmpty)
{
    const RegistryValues values;
    EXPECT_FALSE(RegistryKey::OpenLocalMachine(kKey));
    EXPECT_EQ(Query("Name", 10), "(refused)");
    EXPECT_EQ(Text("Name"), std::nullopt);
    EXPECT_FALSE(RegistryKey());
}

TEST(RegistryContract, AncestorsOfAKeyExist)
{
    const RegistryValues values;
    RegistryValues::Create(std::string(kKey) + "\\Below");
    EXPECT_TRUE(RegistryKey::OpenLocalMachine(kKey));
    EXPECT_TRUE(RegistryKey::OpenLocalMachine("Software\\TORVAN"));
    EXPECT_FALSE(RegistryKey::OpenLocalMachine("Software\\TORVAN\\Cont"));
}

struct Value
{
    const char *name;
    std::string data;
    int type;
    std::size_t capacity;
    std::string query;
    std::string text;
};

TEST(RegistryContract, DataIsReadWhateverItsTypeIfTheBufferHoldsAllOfIt)
{
    const RegistryValues values;
    const std::string nine(9, 'x');
    const std::string tooLong(5000, 'x');
    for (const Value &value : {
             Value{"fits", nine + '\0', 1, 10, nine, nine},
             {"too long", nine + '\0', 1, 9, "(refused)", nine},
             {"text has no limit", tooLong + '\0', 1, 300, "(refused)", tooLong},
             {"no terminating NUL", "abcd", 1, 5, "abcd", "abcd"},
             {"expandable, not expanded", std::string("%PATH%\0", 7), 2, 10, "%PATH%", "%PATH%"},
             {"binary", std::string("ab\0", 3), 3, 10, "ab", "ab"},
             {"number", std::string("EN\0\0", 4), 4, 10, "EN", "EN"},
             {"empty", std::string(1, '\0'), 1, 10, "", ""},
         }) {
        RegistryValues::Set(kKey, value.name, value.data, value.type);
        EXPECT_EQ(Query(value.name, value.capacity), value.query) << value.name;
        EXPECT_EQ(Text(value.name), value.text) << value.name;
    }
    EXPECT_EQ(Query("other", 10), "(refused)");
}

TEST(RegistryContract, KeysAndNamesIgnoreCaseAndAKeyCanBeMoved)
{
    const RegistryValues values;
    RegistryValues::SetText(kKey, "Name", "text");
    RegistryKey first = RegistryKey::OpenLocalMachine("SOFTWARE\\torvan\\CONTRACT");
    ASSERT_TRUE(first);
    RegistryKey second = std::move(first);
    EXPECT_EQ(second.Text("nAME"), "text");
    second = RegistryKey();
    EXPECT_FALSE(second);
}

} // namespace
