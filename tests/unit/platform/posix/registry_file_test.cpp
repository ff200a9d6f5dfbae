#include "platform/posix/registry_file.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using platform::ParseRegistry;
using platform::RegistryKeys;

constexpr const char *kSection = "[HKEY_LOCAL_MACHINE\\Software\\TORVAN\\KTR]\n";

// The data of the value "v" in the one key of the tests, "(none)" when there is none.
std::string Value(const std::string &line)
{
    const RegistryKeys keys = ParseRegistry(kSection + line);
    const auto key = keys.find("software\\torvan\\ktr");
    if (key == keys.end() || key->second.count("v") == 0) {
        return "(none)";
    }
    return key->second.at("v");
}

std::string Text(const char *text)
{
    return std::string(text) + '\0';
}

struct Line
{
    std::string lines;
    std::string data;
};

TEST(RegistryFile, ValuesGiveTheirRawDataAndWhatCannotBeReadIsLeftOut)
{
    const std::string none = "(none)";
    for (const Line &line : {
             Line{"\"v\"=\"English\"", Text("English")},
             {"\"v\"=\"\"", Text("")},
             {"\"v\"=\"C:\\\\a \\\"b\\\"\"", Text("C:\\a \"b\"")},
             {"\"v\"=\"\xC3\xA9\"", Text("\xC3\xA9")},
             {"\"v\"=\"two\nlines\"", Text("two\nlines")},
             {"\"\\\"\\\\\"=\"x\"\n\"v\"=\"y\"", Text("y")},
             {"\"v\"=dword:0000004e", std::string("N\0\0\0", 4)},
             {"\"v\"=hex:61,62,00", std::string("ab\0", 3)},
             {"\"v\"=hex(1):61,00,62,00,00,00", std::string("a\0b\0\0\0", 6)},
             {"\"v\"=hex:61,\\\n  62,\\\r\n  63", "abc"},
             {"\"v\"=hex:", ""},
             {"\"v\"=HEX:61 ; a comment", "a"},
             {"\"v\"=\"1\"\n\"V\"=\"2\"", Text("2")}, // the last one wins
             {"\"v\"=\"1\"\n" + std::string(kSection) + "\"v\"=\"2\"", Text("2")},
             {"\"v\"", none},
             {"\"v\"=", none},
             {"\"v\"=x", none},
             {"\"v\"=\"open", none},
             {"\"v=\"x\"", none},
             {"v=\"x\"", none},
             {"\"v\"=dword:", none},
             {"\"v\"=dword:xyz", none},
             {"\"v\"=dword:100000000", none},
             {"\"v\"=hex:100", none},
             {"\"v\"=hex:6g", none},
             {"\"v\"=hex", none},
             {"\"v\"=hex(1)", none},
             {";\"v\"=\"x\"", none},
             {"\"v\" \"x\"", none},
             {"=\"x\"", none},
             {"\"\\", none},
         }) {
        EXPECT_EQ(Value(line.lines), line.data) << line.lines;
    }
}

TEST(RegistryFile, TheNextLineSurvivesABadOne)
{
    for (const char *line : {"garbage", "\"v\"=x", "\"v\"=hex:zz", "@", "[", "]", ";", "", "\\"}) {
        // A bad section line ends the section before it.
        EXPECT_EQ(Value(std::string(line) + "\n\"v\"=\"good\"\n"),
                  line[0] == '[' ? "(none)" : Text("good"))
            << line;
    }
}

TEST(RegistryFile, LayoutDoesNotMatter)
{
    const std::string file = "\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n\r\n"
                             "; a comment\r\n"
                             "  [hkey_local_machine\\SOFTWARE\\Torvan\\ktr]  \r\n"
                             "\t\"V\" = \"x\"\r\n@=\"default\"\r\n";
    const RegistryKeys keys = ParseRegistry(file);
    EXPECT_EQ(keys.at("software\\torvan\\ktr").at("v"), Text("x"));
    EXPECT_EQ(keys.at("software\\torvan\\ktr").at(""), Text("default"));
}

TEST(RegistryFile, ASectionMakesItsAncestorsExist)
{
    const RegistryKeys keys = ParseRegistry(kSection);
    EXPECT_EQ(keys.size(), 3U);
    EXPECT_EQ(keys.count("software"), 1U);
    EXPECT_EQ(keys.count("software\\torvan"), 1U);
}

TEST(RegistryFile, OtherRootsAreNotRead)
{
    EXPECT_TRUE(ParseRegistry("[HKEY_CURRENT_USER\\Software\\TORVAN\\KTR]\n\"v\"=\"x\"").empty());
    EXPECT_TRUE(ParseRegistry("[HKEY_LOCAL_MACHINE]\n\"v\"=\"x\"").empty());
    EXPECT_TRUE(ParseRegistry("\"v\"=\"x\"").empty());
}

TEST(RegistryFile, HostileTextsAreSurvived)
{
    EXPECT_TRUE(ParseRegistry(std::string(1000, '\0')).empty());
    EXPECT_TRUE(ParseRegistry(std::string(100000, '[')).empty());
    EXPECT_EQ(Value(std::string(100000, '"')), "(none)");
    EXPECT_EQ(Value("\"v\"=hex:" + std::string(100000, ',')), "");
    EXPECT_EQ(Value("\"v\"=\"" + std::string(1000000, 'x') + "\"").size(), 1000001U);
}

} // namespace
