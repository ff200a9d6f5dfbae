#include "controller/offers.h"
#include "controller/ui_utility.h"
#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"
#include "tests/unit/platform/support/fake_library.h"
#include "tests/unit/platform/support/registry_values.h"

#include <QTextCodec>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <new>
#include <set>
#include <thread>

namespace {

bool outOfMemory = false;

} // namespace

// Replaces the form of `new` that reports a lack of memory by a null pointer.
void *operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept
{
    return outOfMemory ? nullptr : ::operator new(size);
}

namespace {

using Notes = std::vector<std::string>;

// A library that has been loaded once is the one for the whole process, whatever its path: the
// client asks for it by its bare name.
class ConfigInstance : public testing::Test
{
protected:
    CVantorConfigInstance &Config()
    {
        if (!config) {
            config = std::make_unique<CVantorConfigInstance>();
            library.NewNotes();
            LogWatch::NewLines();
        }
        return *config;
    }

    QString Get(const char *key, const char *fallback = "fallback")
    {
        return Config().GetString(QString::fromUtf8(key), QString::fromUtf8(fallback));
    }

    contract::FakeLibrary library{CONFIG_FAKE};
    LogWatch log;
    contract::RegistryValues values;
    std::unique_ptr<CVantorConfigInstance> config;
};

TEST_F(ConfigInstance, CreatesItsObjectAtOnce)
{
    const CVantorConfigInstance created;
    EXPECT_EQ(library.NewNotes(), (Notes{"create_config result=object", "init_config mode=0"}));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                           "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true",
                           "CVantorConfigInstance::CVantorConfigInstance() leave"}));
}

TEST_F(ConfigInstance, UsesAnObjectWhoseInitialisationFailed)
{
    library.Tell({{"init", "0"}, {"string.a", "b"}});
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
    library.Tell({{"create", "null"}});
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
    EXPECT_EQ(library.NewNotes(), Notes{"create_config result=null"});
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                           "CVantorConfigInstance::~CVantorConfigInstance leave"}));
}

TEST_F(ConfigInstance, ReleasesItsObject)
{
    Config();
    config.reset();
    EXPECT_EQ(library.NewNotes(), Notes{"release_config object=own"});
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                           "CVantorConfigInstance::~CVantorConfigInstance leave"}));
}

TEST_F(ConfigInstance, SizesAndFetchesAText)
{
    library.Tell({{"string.coupon_text", "50% OFF"}});
    Config();
    EXPECT_EQ(Get("coupon_text", "none"), QString("50% OFF"));
    EXPECT_EQ(
        library.NewNotes(),
        (Notes{"get_string_value key=coupon_text suffix= buffer=null size=4294967295 result=7",
               "get_string_value key=coupon_text suffix= buffer=given size=8 result=7"}));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::GetString enter(qstrKey= \"coupon_text\" "
                           " strDefault= \"none\" )",
                           "CVantorConfigInstance::GetString leave. strRet= \"50% OFF\""}));
}

TEST_F(ConfigInstance, SplitsItsKeyAndLogsAllOfIt)
{
    library.Tell({{"string.coupon_text__de", "Rabatt"}, {"string.a__b__c", "x"}});
    Config();
    EXPECT_EQ(Get("coupon_text__de"), QString("Rabatt"));
    EXPECT_EQ(library.NewNotes().front(),
              "get_string_value key=coupon_text suffix=de buffer=null size=4294967295 result=6");
    EXPECT_TRUE(LogWatch::NewLines().first().contains("\"coupon_text__de\""));
    EXPECT_EQ(Get("a__b__a__c"), QString("x"));
    EXPECT_EQ(library.NewNotes().back(),
              "get_string_value key=a suffix=b__c buffer=given size=2 result=1");
}

struct Miss
{
    const char *key;
    QStringList reason;
};

TEST_F(ConfigInstance, EveryLookUpWithoutAValueLogsWhyAndThatItLeaves)
{
    library.Tell({{"length.broken__x", "0"},
                  {"length.long", "-5"},
                  {"length.empty", "3"},
                  {"fill.empty", "none"}});
    Config();
    for (const Miss &miss : {Miss{"__x", {}},
                             Miss{"", {}},
                             Miss{"broken__x", {"\"broken query error!\""}},
                             Miss{"unknown", {"\"unknown has No value!\""}},
                             Miss{"long", {"\"long is too long! length:-4\""}},
                             Miss{"empty", {}}}) {
        EXPECT_EQ(Get(miss.key), QString("fallback"));
        // An empty key is not asked for, a length that is none not fetched.
        const std::size_t calls =
            QString(miss.key) == "empty" ? 2 : static_cast<std::size_t>(miss.reason.size());
        EXPECT_EQ(library.NewNotes().size(), calls) << miss.key;
        const QString enter = "CVantorConfigInstance::GetString enter(qstrKey= \"%1\" "
                              " strDefault= \"fallback\" )";
        EXPECT_EQ(LogWatch::NewLines(),
                  QStringList{enter.arg(miss.key)} + miss.reason +
                      QStringList{"CVantorConfigInstance::GetString leave. strRet= \"fallback\""});
    }
    EXPECT_TRUE(Config().GetBoolean("__x", true));
    EXPECT_EQ(library.NewNotes(), Notes{});
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

struct Lie
{
    const char *length;
    const char *fill;
    const char *value;
};

TEST_F(ConfigInstance, LengthsThatLieAreSurvived)
{
    for (const Lie &lie : {Lie{"5", "", "text"}, // one too many
                           Lie{"3", "bare", "tex"},
                           Lie{"10", "none", "fallback"},
                           Lie{"4", "all", "xxxx"}}) {
        library.Tell({{"string.a", "text"}, {"length.a", lie.length}, {"fill.a", lie.fill}});
        EXPECT_EQ(Get("a"), QString(lie.value)) << lie.length;
    }
}

// What lay in that memory before must not become part of the text.
TEST_F(ConfigInstance, ATextThatIsShorterThanSaidAndHasNoZeroIsAllThereIs)
{
    constexpr std::size_t kLength = 999;
    library.Tell({{"string.a", "text"}, {"length.a", "999"}, {"fill.a", "bare"}});
    Config();
    {
        const auto before = std::make_unique<std::string>(kLength, 'x');
        EXPECT_EQ(before->back(), 'x');
    }
    EXPECT_EQ(Get("a"), QString("text"));
}

TEST_F(ConfigInstance, LongTextsAreNoProblem)
{
    library.Tell({{"string.long", std::string(1U << 20U, 'x')}});
    EXPECT_EQ(Get("long").size(), 1 << 20);
}

TEST_F(ConfigInstance, TwoGigabytesAreSurvived)
{
    library.Tell({{"length.huge", "2147483647"}, {"string.huge", "short"}});
    Config();
    const QString value = Get("huge");
    // There may be room for it or not; there is no limit but that.
    if (value == QString("fallback")) {
        EXPECT_EQ(LogWatch::NewLines().at(1), QString("\"huge is too long! length:2147483648\""));
    } else {
        EXPECT_EQ(value, QString("short"));
        EXPECT_EQ(library.NewNotes().back(),
                  "get_string_value key=huge suffix= buffer=given size=2147483648 result=5");
    }
}

TEST_F(ConfigInstance, OneSlashAtTheEndGoesAndTextsAreUtf8)
{
    const std::string offer = "\xE5\x84\xAA\xE6\x83\xA0";
    library.Tell({{"string.one", "https://a.example/"},
                  {"string.two", "https://a.example//"},
                  {"string.only", "/"},
                  {"string.inside", "a/b"},
                  {"string.\xC3\xA9__\xE6\x97\xA5", offer}});
    EXPECT_EQ(Get("one"), QString("https://a.example"));
    EXPECT_EQ(Get("two"), QString("https://a.example/"));
    EXPECT_EQ(Get("only"), QString());
    EXPECT_EQ(Get("inside"), QString("a/b"));
    EXPECT_EQ(Get("\xC3\xA9__\xE6\x97\xA5"), QString::fromUtf8(offer.c_str()));
}

TEST_F(ConfigInstance, SwitchesKeepTheirDefaultUntilTheLibrarySaysOtherwise)
{
    library.Tell({{"bool.on", "1"}, {"bool.off__de", "0"}});
    EXPECT_TRUE(Config().GetBoolean("on", false));
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::GetBoolean enter(qstrKey= \"on\" "
                           " bIsDefault= false )",
                           "CVantorConfigInstance::GetBoolean leave. bRet= true"}));
    EXPECT_FALSE(Config().GetBoolean("off__de", true));
    EXPECT_TRUE(LogWatch::NewLines().first().contains("\"off\""));
    EXPECT_TRUE(Config().GetBoolean("unknown", true));
    EXPECT_FALSE(Config().GetBoolean("unknown", false));
    EXPECT_EQ(library.NewNotes(),
              (Notes{"get_bool_value key=on suffix= before=0",
                     "get_bool_value key=off suffix=de before=1",
                     "get_bool_value key=unknown suffix= before=1",
                     "get_bool_value key=unknown suffix= before=0"}));
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
        library.NewNotes();
        LogWatch::NewLines();
        Config().SetPreFix(std::string(prefix.tag));
        EXPECT_EQ(library.NewNotes(),
                  Notes{std::string("set_filter_environment prefix=") + prefix.sent});
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
    Config();
    Config().SetPreFix(std::string("tag"));
    QTextCodec::setCodecForLocale(before);
    EXPECT_EQ(library.NewNotes(),
              Notes{"set_filter_environment prefix=\xE2\x82\xACx__tag__\xC3\xA9"});
}

TEST_F(ConfigInstance, ANullPrefixIsNotSent)
{
    Config().SetPreFix(static_cast<const char *>(nullptr));
    EXPECT_EQ(library.NewNotes(), Notes{});
    EXPECT_EQ(LogWatch::NewLines(),
              (QStringList{"CVantorConfigInstance::SetPreFix enter(pszPrefix=  )",
                           "CVantorConfigInstance::SetPreFix(char*) leave"}));
}

// Each of these runs in a process of its own: what it needs can be had only once in one.
class ConfigProcessDeathTest : public testing::Test
{
protected:
    template<typename Check> static void InItsOwnProcess(Check check)
    {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        EXPECT_EXIT(
            {
                check();
                std::exit(HasFailure() ? 1 : 0);
            },
            testing::ExitedWithCode(0),
            "");
    }

    /// The result for eight threads that ask at the same moment.
    template<typename Ask> static auto Seen(Ask ask)
    {
        constexpr std::size_t kThreads = 8;
        std::atomic<std::size_t> waiting{0};
        std::vector<decltype(ask())> seen(kThreads);
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < kThreads; ++i) {
            threads.emplace_back([&waiting, &seen, &ask, i] {
                ++waiting;
                while (waiting != kThreads) {
                    std::this_thread::yield();
                }
                seen[i] = ask();
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        EXPECT_NE(seen.front(), nullptr);
        return std::set<decltype(ask())>(seen.begin(), seen.end()).size();
    }
};

TEST_F(ConfigProcessDeathTest, AllThreadsGetTheOneInstanceWhichStays)
{
    InItsOwnProcess([] {
        contract::FakeLibrary library(CONFIG_FAKE);
        EXPECT_EQ(Seen([] { return UIUtility::instance(); }), 1U);
        EXPECT_EQ(Seen([] { return CVantorConfigInstance::Instance(); }), 1U);
        EXPECT_EQ(library.NewNotes(), (Notes{"create_config result=object", "init_config mode=0"}));
    });
}

TEST_F(ConfigProcessDeathTest, WithoutALibraryItAnswersDefaults)
{
    InItsOwnProcess([] {
        const LogWatch log;
        auto config = std::make_unique<CVantorConfigInstance>();
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::CVantorConfigInstance() enter",
                               "load vantoronlineconfig.dll error!",
                               "CVantorConfigInstance::CVantorConfigInstance() leave"}));
        EXPECT_EQ(config->GetString("key", "fallback"), QString("fallback"));
        EXPECT_EQ(LogWatch::NewLines().at(1), QString("vantoronlineconfig need Create!"));
        EXPECT_TRUE(config->GetBoolean("key", true));
        EXPECT_FALSE(config->GetBoolean("key", false));
        config->SetPreFix(std::string("tag"));
        config->SetPreFix("prefix");
        LogWatch::NewLines();
        config.reset();
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                               "CVantorConfigInstance::~CVantorConfigInstance leave"}));
    });
}

TEST_F(ConfigProcessDeathTest, WithoutMemoryThereIsNoInstanceAndNoOffersAreConfigured)
{
    InItsOwnProcess([] {
        outOfMemory = true;
        EXPECT_FALSE(OfferSources::System().configured());
        outOfMemory = false;
        EXPECT_EQ(UIUtility::instance()->configInstance(), nullptr);
        EXPECT_EQ(CVantorConfigInstance::Instance(), nullptr);
    });
}

TEST_F(ConfigProcessDeathTest, AnObjectThatCannotBeReleasedIsUsedAndThenLeftAlone)
{
    InItsOwnProcess([] {
        contract::FakeLibrary library(CONFIG_FAKE, VANTOR_RELEASE_CONFIG);
        const LogWatch log;
        auto config = std::make_unique<CVantorConfigInstance>();
        EXPECT_TRUE(LogWatch::NewLines().contains(
            "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true"));
        EXPECT_EQ(config->GetString("a", "b"), QString("b"));
        LogWatch::NewLines();
        library.NewNotes();
        config.reset();
        EXPECT_EQ(library.NewNotes(), Notes{});
        EXPECT_EQ(LogWatch::NewLines(),
                  (QStringList{"CVantorConfigInstance::~CVantorConfigInstance enter",
                               "CVantorConfigInstance::~CVantorConfigInstance leave"}));
    });
}

TEST_F(ConfigProcessDeathTest, TheLibraryStaysWhenItsClientHasGone)
{
    InItsOwnProcess([] {
        const contract::FakeLibrary library(CONFIG_FAKE);
        {
            const CVantorConfigInstance config;
            contract::UnloadLibrary(library.Handle());
        }
        EXPECT_TRUE(contract::IsLibraryLoaded(library.Path()));
    });
}

// "create_config" is called as it was resolved.
TEST_F(ConfigProcessDeathTest, WithoutItsEntryTheProcessEnds)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            // cppcheck-suppress unreadVariable
            const contract::FakeLibrary library(CONFIG_FAKE, VANTOR_CREATE_CONFIG);
            const CVantorConfigInstance config;
        },
        "CVantorConfigInstance\\(\\) enter");
}

} // namespace
