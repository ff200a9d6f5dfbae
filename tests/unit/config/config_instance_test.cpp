#include "platform/library.h"
#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/fixture_state.h"
#include "tests/unit/config/log_watch.h"
#include "tests/unit/platform/support/registry_values.h"

#include <QTextCodec>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

// Its library lies where the loader finds it by its bare name.

namespace {

using Calls = std::vector<std::string>;

class ConfigInstance : public testing::Test
{
protected:
    void SetUp() override
    {
        auto *const library = platform::LoadLibraryFile("vantoronlineconfig.dll");
        ASSERT_NE(library, nullptr);
        state = reinterpret_cast<FixtureState *(*)()>(
            platform::FindFunction(library, "FixtureStateOf"))();
        *state = FixtureState();
    }

    CVantorConfigInstance &Config()
    {
        if (!config) {
            config = std::make_unique<CVantorConfigInstance>();
            state->calls.clear();
            LogWatch::NewLines();
        }
        return *config;
    }

    QString Get(const char *key, const char *fallback = "fallback")
    {
        return Config().GetString(QString::fromUtf8(key), QString::fromUtf8(fallback));
    }

    FixtureState *state = nullptr;
    LogWatch log;
    contract::RegistryValues values;
    std::unique_ptr<CVantorConfigInstance> config;
};

TEST_F(ConfigInstance, CreatesItsObjectAtOnce)
{
    const CVantorConfigInstance created;
    EXPECT_EQ(state->calls, (Calls{"create", "init 0"}));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                           "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true",
                           "CVantorConfigInstance::CVantorConfigInstance() leave"}));
}

TEST_F(ConfigInstance, UsesAnObjectWhoseInitialisationFailed)
{
    state->initResult = false;
    state->texts["a"] = "b";
    CVantorConfigInstance created;
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                           "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= false",
                           "vantoronlineconfig init failure!",
                           "CVantorConfigInstance::CVantorConfigInstance() leave"}));
    EXPECT_EQ(created.GetString("a", ""), QString("b"));
}

TEST_F(ConfigInstance, LivesOnWithoutAnObject)
{
    state->createFails = true;
    {
        CVantorConfigInstance created;
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                               "vantoronlineconfig create  fun error!",
                               "CVantorConfigInstance::CVantorConfigInstance() leave"}));
        EXPECT_EQ(created.GetString("a__b", "c"), QString("c"));
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::GetString enter(qstrKey= \"a__b\" "
                               " strDefault= \"c\" )",
                               "vantoronlineconfig need Create!",
                               "CVantorConfigInstance::GetString leave. strRet= \"c\""}));
        EXPECT_TRUE(created.GetBoolean("a__b", true));
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::GetBoolean enter(qstrKey= \"a\" "
                               " bIsDefault= true )",
                               "vantoronlineconfig need Create!",
                               "CVantorConfigInstance::GetBoolean leave. bRet= true"}));
        created.SetPreFix(std::string("tag"));
        created.SetPreFix("prefix");
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::SetPreFix enter(strVersion= tag )",
                               "CVantorConfigInstance::SetPreFix(version) leave",
                               "CVantorConfigInstance::SetPreFix enter(pszPrefix= prefix )",
                               "CVantorConfigInstance::SetPreFix(char*) leave"}));
    }
    EXPECT_EQ(state->calls, (Calls{"create"}));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                           "CVantorConfigInstance::~CVantorConfigInstance leave"}));
}

TEST_F(ConfigInstance, ReleasesItsObject)
{
    Config();
    config.reset();
    EXPECT_EQ(state->calls, (Calls{"release the object"}));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                           "CVantorConfigInstance::~CVantorConfigInstance leave"}));
}

TEST_F(ConfigInstance, SizesAndFetchesAText)
{
    state->texts["coupon_text"] = "50% OFF";
    EXPECT_EQ(Get("coupon_text", "none"), QString("50% OFF"));
    EXPECT_EQ(state->calls,
              (Calls{"text coupon_text| size 4294967295", "text coupon_text| fetch 8"}));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::GetString enter(qstrKey= \"coupon_text\" "
                           " strDefault= \"none\" )",
                           "CVantorConfigInstance::GetString leave. strRet= \"50% OFF\""}));
}

TEST_F(ConfigInstance, SplitsItsKeyAndLogsAllOfIt)
{
    state->texts["coupon_text|de"] = "Rabatt";
    state->texts["a|b__c"] = "x";
    EXPECT_EQ(Get("coupon_text__de"), QString("Rabatt"));
    EXPECT_EQ(state->calls.front(), "text coupon_text|de size 4294967295");
    EXPECT_TRUE(LogWatch::NewLines().first().contains("\"coupon_text__de\""));
    EXPECT_EQ(Get("a__b__a__c"), QString("x"));
}

TEST_F(ConfigInstance, AKeyThatIsEmptyIsNotAskedFor)
{
    EXPECT_EQ(Get("__x"), QString("fallback"));
    EXPECT_EQ(Get(""), QString("fallback"));
    EXPECT_TRUE(Config().GetBoolean("__x", true));
    EXPECT_EQ(state->calls, Calls{});
}

struct Miss
{
    const char *key;
    QStringList reason;
};

TEST_F(ConfigInstance, EveryLookUpWithoutAValueLogsWhyAndThatItLeaves)
{
    state->lengths["broken|x"] = 0;
    state->lengths["long"] = -5;
    state->lengths["empty"] = 3;
    state->unfilled.insert("empty");
    Config();
    for (const Miss &miss : {Miss{"__x", {}},
                             Miss{"", {}},
                             Miss{"broken__x", {"\"broken query error!\""}},
                             Miss{"unknown", {"\"unknown has No value!\""}},
                             Miss{"long", {"\"long is too long! length:-4\""}},
                             Miss{"empty", {}}}) {
        EXPECT_EQ(Get(miss.key), QString("fallback"));
        const QString enter = "CVantorConfigInstance::GetString enter(qstrKey= \"%1\" "
                              " strDefault= \"fallback\" )";
        EXPECT_EQ(LogWatch::NewLines(),
                  QStringList{enter.arg(miss.key)} + miss.reason +
                      QStringList{"CVantorConfigInstance::GetString leave. strRet= \"fallback\""});
    }
    EXPECT_TRUE(Config().GetBoolean("__x", true));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::GetBoolean enter(qstrKey= \"\" "
                           " bIsDefault= true )",
                           "CVantorConfigInstance::GetBoolean leave. bRet= true"}));
}

TEST_F(ConfigInstance, AKeyWithAPlaceholderIsLoggedAsItStands)
{
    Get("100%1");
    EXPECT_EQ(LogWatch::NewLines().at(1), QString("\"100%1 has No value!\""));
}

TEST_F(ConfigInstance, LengthsThatLieAreSurvived)
{
    state->lengths["a"] = -5;
    EXPECT_EQ(Get("a"), QString("fallback"));
    EXPECT_EQ(LogWatch::NewLines().at(1), QString("\"a is too long! length:-4\""));
    EXPECT_EQ(state->calls, (Calls{"text a| size 4294967295"}));

    state->texts["b"] = "text";
    state->lengths["b"] = 5; // one too many
    EXPECT_EQ(Get("b"), QString("text"));
    state->lengths["b"] = 3; // one too few
    EXPECT_EQ(Get("b"), QString("tex"));

    state->lengths["c"] = 10;
    state->unfilled.insert("c");
    EXPECT_EQ(Get("c"), QString("fallback"));

    state->lengths["d"] = 4;
    state->overfilled.insert("d");
    EXPECT_EQ(Get("d"), QString("xxxx"));
}

// What lay in that memory before must not become part of the text.
TEST_F(ConfigInstance, ATextThatIsShorterThanSaidAndHasNoZeroIsAllThereIs)
{
    constexpr std::int32_t kLength = 999;
    state->texts["a"] = "text";
    state->lengths["a"] = kLength;
    state->unterminated.insert("a");
    Config();
    {
        const auto before = std::make_unique<std::string>(kLength, 'x');
        EXPECT_EQ(before->back(), 'x');
    }
    EXPECT_EQ(Get("a"), QString("text"));
}

TEST_F(ConfigInstance, LongTextsAreNoProblem)
{
    state->texts["long"] = std::string(1U << 20U, 'x');
    EXPECT_EQ(Get("long").size(), 1 << 20);
}

TEST_F(ConfigInstance, TwoGigabytesAreSurvived)
{
    state->lengths["huge"] = 0x7FFFFFFF;
    state->texts["huge"] = "short";
    const QString value = Get("huge");
    // There may be room for it or not; there is no limit but that.
    if (value == QString("fallback")) {
        EXPECT_EQ(LogWatch::NewLines().at(1), QString("\"huge is too long! length:2147483648\""));
    } else {
        EXPECT_EQ(value, QString("short"));
        EXPECT_EQ(state->calls.back(), "text huge| fetch 2147483648");
    }
}

TEST_F(ConfigInstance, OneSlashAtTheEndGoes)
{
    state->texts["one"] = "https://a.example/";
    state->texts["two"] = "https://a.example//";
    state->texts["only"] = "/";
    state->texts["inside"] = "a/b";
    EXPECT_EQ(Get("one"), QString("https://a.example"));
    EXPECT_EQ(Get("two"), QString("https://a.example/"));
    EXPECT_EQ(Get("only"), QString());
    EXPECT_EQ(Get("inside"), QString("a/b"));
}

TEST_F(ConfigInstance, TextsAreUtf8BothWays)
{
    state->texts["\xC3\xA9|\xE6\x97\xA5"] = "\xE5\x84\xAA\xE6\x83\xA0";
    EXPECT_EQ(Get("\xC3\xA9__\xE6\x97\xA5"), QString::fromUtf8("\xE5\x84\xAA\xE6\x83\xA0"));
}

TEST_F(ConfigInstance, SwitchesKeepTheirDefaultUntilTheLibrarySaysOtherwise)
{
    state->switches["on"] = true;
    state->switches["off|de"] = false;
    EXPECT_TRUE(Config().GetBoolean("on", false));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::GetBoolean enter(qstrKey= \"on\" "
                           " bIsDefault= false )",
                           "CVantorConfigInstance::GetBoolean leave. bRet= true"}));
    EXPECT_FALSE(Config().GetBoolean("off__de", true));
    EXPECT_TRUE(LogWatch::NewLines().first().contains("\"off\""));
    EXPECT_TRUE(Config().GetBoolean("unknown", true));
    EXPECT_FALSE(Config().GetBoolean("unknown", false));
    EXPECT_EQ(
        state->calls,
        (Calls{"bool on| false", "bool off|de true", "bool unknown| true", "bool unknown| false"}));
}

struct Prefix
{
    const char *oem;
    const char *tag;
    const char *language;
    const char *sent;
};

TEST_F(ConfigInstance, ThePrefixHasNoEmptyParts)
{
    for (const Prefix &prefix : {Prefix{"abc", "x__180", "en", "abc__x__180__en"},
                                 Prefix{"", "x", "en", "x__en"},
                                 Prefix{"abc", "", "en", "abc__en"},
                                 Prefix{"abc", "x", "", "abc__x"},
                                 Prefix{"", "", "en", "en"},
                                 Prefix{"", "", "", ""}}) {
        values.SetText("Software\\TORVAN\\KTR\\Version", "OEM", prefix.oem);
        values.SetText("Software\\TORVAN\\KTR", "Language", prefix.language);
        Config();
        state->calls.clear();
        LogWatch::NewLines();
        Config().SetPreFix(std::string(prefix.tag));
        EXPECT_EQ(state->calls, (Calls{std::string("environment ") + prefix.sent}));
        EXPECT_EQ(
            LogWatch::NewLines(),
            (QStringList{
                QString("CVantorConfigInstance::SetPreFix enter(strVersion= %1 )").arg(prefix.tag),
                QString("CVantorConfigInstance::SetPreFix enter(pszPrefix= %1 )").arg(prefix.sent),
                "CVantorConfigInstance::SetPreFix set_filter_environment start",
                "CVantorConfigInstance::SetPreFix set_filter_environment end",
                "CVantorConfigInstance::SetPreFix(char*) leave",
                "CVantorConfigInstance::SetPreFix(version) leave"}));
    }
}

// The product's facts come in the system's 8-bit encoding, whatever it is.
TEST_F(ConfigInstance, ThePrefixIsUtf8)
{
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    values.Set("Software\\TORVAN\\KTR\\Version", "OEM", std::string("\xA4") + "x" + '\0');
    values.Set("Software\\TORVAN\\KTR", "Language", std::string("\xE9") + '\0');
    Config().SetPreFix(std::string("tag"));
    QTextCodec::setCodecForLocale(before);
    EXPECT_EQ(state->calls, (Calls{"environment \xE2\x82\xACx__tag__\xC3\xA9"}));
}

TEST_F(ConfigInstance, ANullPrefixIsNotSent)
{
    Config().SetPreFix(static_cast<const char *>(nullptr));
    EXPECT_EQ(state->calls, Calls{});
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::SetPreFix enter(pszPrefix=  )",
                           "CVantorConfigInstance::SetPreFix(char*) leave"}));
}

TEST_F(ConfigInstance, ThereIsOneInstanceAndItStays)
{
    CVantorConfigInstance *const first = CVantorConfigInstance::Instance();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(CVantorConfigInstance::Instance(), first);
    EXPECT_EQ(state->calls, (Calls{"create", "init 0"}));
}

TEST_F(ConfigInstance, NothingButTheFourIsEverCalled)
{
    Get("a");
    Config().GetBoolean("a", true);
    Config().SetPreFix("x");
    config.reset();
    for (const std::string &call : state->calls) {
        EXPECT_EQ(call.find("unexpected"), std::string::npos) << call;
    }
}

} // namespace
