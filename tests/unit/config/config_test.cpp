#include "controller/offers.h"
#include "controller/ui_utility.h"
#include "services/config/vantor_config_instance.h"
#include "tests/unit/config/log_watch.h"
#include "tests/unit/platform/support/fake_library.h"
#include "tests/unit/platform/support/registry_values.h"

#include <QLibrary>
#include <QRegularExpression>
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

/// Expects these lines in the log since the last check. "::" at the start of a line stands for the
/// name of the class.
void ExpectLog(QStringList expected)
{
    EXPECT_EQ(LogWatch::NewLines(),
              expected.replaceInStrings(QRegularExpression("^::"), "CVantorConfigInstance::"));
}

// The client loads the library by its bare name, so it gets the one that this process has already
// loaded, whatever its path.
class ConfigInstance : public testing::Test
{
protected:
    CVantorConfigInstance &Config()
    {
        if (!config_) {
            config_ = std::make_unique<CVantorConfigInstance>();
            library_.NewNotes();
            LogWatch::NewLines();
        }
        return *config_;
    }

    /// Expects this value for `key`, with these lines in the log.
    void ExpectText(const QString &key, const QString &value, const QStringList &reason = {})
    {
        EXPECT_EQ(Config().GetString(key, "fallback"), value);
        ExpectLog(
            QStringList{"::GetString enter(qstrKey= \"" + key + "\"  strDefault= \"fallback\" )"} +
            reason + QStringList{"::GetString leave. strRet= \"" + value + "\""});
    }

    void ExpectSwitch(const QString &key, const QString &name, bool fallback, bool value)
    {
        const auto word = [](bool is) {
            return is ? "true" : "false";
        };
        EXPECT_EQ(Config().GetBoolean(key, fallback), value);
        ExpectLog({QString("::GetBoolean enter(qstrKey= \"%1\"  bIsDefault= %2 )")
                       .arg(name, word(fallback)),
                   QString("::GetBoolean leave. bRet= %1").arg(word(value))});
    }

    contract::FakeLibrary library_{CONFIG_FAKE};
    LogWatch log_;
    contract::RegistryValues values_;
    std::unique_ptr<CVantorConfigInstance> config_;
};

TEST_F(ConfigInstance, CreatesItsObjectAtOnceAndReleasesIt)
{
    {
        const CVantorConfigInstance created;
        EXPECT_EQ(library_.NewNotes(),
                  (Notes{"create_config result=object", "init_config mode=0"}));
        ExpectLog({"::CVantorConfigInstance() enter",
                   "::CVantorConfigInstance() m_bInitRet= true",
                   "::CVantorConfigInstance() leave"});
    }
    EXPECT_EQ(library_.NewNotes(), Notes{"release_config object=own"});
    ExpectLog({"::~CVantorConfigInstance enter", "::~CVantorConfigInstance leave"});
}

TEST_F(ConfigInstance, UsesAnObjectWhoseInitialisationFailed)
{
    library_.Tell({{"init", "0"}, {"string.a", "b"}});
    CVantorConfigInstance created;
    ExpectLog({"::CVantorConfigInstance() enter",
               "::CVantorConfigInstance() m_bInitRet= false",
               "vantoronlineconfig init failure!",
               "::CVantorConfigInstance() leave"});
    EXPECT_EQ(created.GetString("a", ""), "b");
}

TEST_F(ConfigInstance, AnswersDefaultsWithoutAnObject)
{
    library_.Tell({{"create", "null"}});
    {
        CVantorConfigInstance created;
        EXPECT_EQ(created.GetString("a__b", "c"), "c");
        EXPECT_TRUE(created.GetBoolean("a__b", true));
        created.SetPreFix(std::string("tag"));
        created.SetPreFix("prefix");
    }
    EXPECT_EQ(library_.NewNotes(), Notes{"create_config result=null"});
    ExpectLog({"::CVantorConfigInstance() enter",
               "vantoronlineconfig create  fun error!",
               "::CVantorConfigInstance() leave",
               "::GetString enter(qstrKey= \"a__b\"  strDefault= \"c\" )",
               "vantoronlineconfig need Create!",
               "::GetString leave. strRet= \"c\"",
               "::GetBoolean enter(qstrKey= \"a\"  bIsDefault= true )",
               "vantoronlineconfig need Create!",
               "::GetBoolean leave. bRet= true",
               "::SetPreFix enter(strVersion= tag )",
               "::SetPreFix(version) leave",
               "::SetPreFix enter(pszPrefix= prefix )",
               "::SetPreFix(char*) leave",
               "::~CVantorConfigInstance enter",
               "::~CVantorConfigInstance leave"});
}

struct Key
{
    const char *key;
    const char *name;
    const char *suffix;
};

TEST_F(ConfigInstance, SplitsAKeyAndSizesAndFetchesItsText)
{
    library_.Tell({{"string.coupon_text", "12345"},
                   {"string.coupon_text__de", "12345"},
                   {"string.a__b__c", "12345"}});
    Config();
    for (const Key &key : {Key{"coupon_text", "coupon_text", ""},
                           {"coupon_text__de", "coupon_text", "de"},
                           {"a__b__a__c", "a", "b__c"}}) {
        ExpectText(key.key, "12345");
        const std::string call =
            std::string("get_string_value key=") + key.name + " suffix=" + key.suffix;
        EXPECT_EQ(library_.NewNotes(),
                  (Notes{call + " buffer=null size=4294967295 result=5",
                         call + " buffer=given size=6 result=5"}));
    }
}

struct LookUp
{
    const char *key;
    QString value;
    std::size_t calls;
    QStringList reason;
};

TEST_F(ConfigInstance, EveryLookUpLogsItsValueOrWhyItHasNone)
{
    const QString offer = "\xE5\x84\xAA\xE6\x83\xA0";
    library_.Tell({{"length.broken__x", "0"},
                   {"length.long", "-5"},
                   {"length.empty", "3"},
                   {"fill.empty", "none"},
                   {"string.one", "https://a.example/"},
                   {"string.two", "https://a.example//"},
                   {"string.only", "/"},
                   {"string.inside", "a/b"},
                   {"string.\xC3\xA9__\xE6\x97\xA5", offer.toStdString()},
                   {"string.big", std::string(1U << 20U, 'x')},
                   // Lengths that are wrong
                   {"string.short", "text"},
                   {"length.short", "5"},
                   {"string.cut", "text"},
                   {"length.cut", "3"},
                   {"fill.cut", "bare"},
                   {"string.full", "text"},
                   {"length.full", "4"},
                   {"fill.full", "all"},
                   {"string.bare", "text"},
                   {"length.bare", "999"},
                   {"fill.bare", "bare"}});
    Config();
    for (const LookUp &row : {LookUp{"__x", "fallback", 0, {}},
                              {"", "fallback", 0, {}},
                              {"broken__x", "fallback", 1, {"\"broken query error!\""}},
                              {"unknown", "fallback", 1, {"\"unknown has No value!\""}},
                              {"100%1", "fallback", 1, {"\"100%1 has No value!\""}},
                              {"long", "fallback", 1, {"\"long is too long! length:-4\""}},
                              {"empty", "fallback", 2, {}},
                              {"one", "https://a.example", 2, {}},
                              {"two", "https://a.example/", 2, {}},
                              {"only", "", 2, {}},
                              {"inside", "a/b", 2, {}},
                              {"\xC3\xA9__\xE6\x97\xA5", offer, 2, {}},
                              {"big", QString(1 << 20, 'x'), 2, {}},
                              {"short", "text", 2, {}},
                              {"cut", "tex", 2, {}},
                              {"full", "xxxx", 2, {}},
                              {"bare", "text", 2, {}}}) {
        SCOPED_TRACE(row.key);
        {
            // What lay in the memory before must not become part of the text.
            const auto before = std::make_unique<std::string>(999, 'x');
            EXPECT_EQ(before->back(), 'x');
        }
        ExpectText(row.key, row.value, row.reason);
        EXPECT_EQ(library_.NewNotes().size(), row.calls);
    }
}

TEST_F(ConfigInstance, TwoGigabytesAreReadIfThereIsEnoughMemory)
{
    library_.Tell({{"length.huge", "2147483647"}, {"string.huge", "short"}});
    const QString value = Config().GetString("huge", "fallback");
    if (value == "fallback") {
        EXPECT_EQ(LogWatch::NewLines().at(1), "\"huge is too long! length:2147483648\"");
    } else {
        EXPECT_EQ(value, "short");
        EXPECT_EQ(library_.NewNotes().back(),
                  "get_string_value key=huge suffix= buffer=given size=2147483648 result=5");
    }
}

TEST_F(ConfigInstance, SwitchesKeepTheirDefaultUntilTheLibrarySaysOtherwise)
{
    library_.Tell({{"bool.on", "1"}, {"bool.off__de", "0"}});
    Config();
    ExpectSwitch("on", "on", false, true);
    ExpectSwitch("off__de", "off", true, false);
    ExpectSwitch("unknown", "unknown", true, true);
    ExpectSwitch("unknown", "unknown", false, false);
    ExpectSwitch("__x", "", true, true); // an empty name is not asked for
    EXPECT_EQ(library_.NewNotes(),
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
    Config();
    for (const Prefix &prefix : {Prefix{"abc", "x__180", "en", "abc__x__180__en"},
                                 {"", "x", "en", "x__en"},
                                 {"abc", "", "en", "abc__en"},
                                 {"abc", "x", "", "abc__x"},
                                 {"", "", "en", "en"},
                                 {"", "", "", ""}}) {
        values_.SetText("Software\\TORVAN\\KTR\\Version", "OEM", prefix.oem);
        values_.SetText("Software\\TORVAN\\KTR", "Language", prefix.language);
        Config().SetPreFix(std::string(prefix.tag));
        EXPECT_EQ(library_.NewNotes(),
                  Notes{std::string("set_filter_environment prefix=") + prefix.sent});
        ExpectLog({QString("::SetPreFix enter(strVersion= %1 )").arg(prefix.tag),
                   QString("::SetPreFix enter(pszPrefix= %1 )").arg(prefix.sent),
                   "::SetPreFix set_filter_environment start",
                   "::SetPreFix set_filter_environment end",
                   "::SetPreFix(char*) leave",
                   "::SetPreFix(version) leave"});
    }
}

// The product's facts come in the system's 8-bit encoding, whatever it is.
TEST_F(ConfigInstance, ThePrefixIsUtf8)
{
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    // Binary: Windows would convert text to UTF-16 and back.
    values_.Set("Software\\TORVAN\\KTR\\Version", "OEM", "\xA4x", 3);
    values_.Set("Software\\TORVAN\\KTR", "Language", "\xE9", 3);
    Config().SetPreFix(std::string("tag"));
    QTextCodec::setCodecForLocale(before);
    EXPECT_EQ(library_.NewNotes(),
              Notes{"set_filter_environment prefix=\xE2\x82\xACx__tag__\xC3\xA9"});
}

TEST_F(ConfigInstance, ANullPrefixIsNotSent)
{
    Config().SetPreFix(static_cast<const char *>(nullptr));
    EXPECT_EQ(library_.NewNotes(), Notes{});
    ExpectLog({"::SetPreFix enter(pszPrefix=  )", "::SetPreFix(char*) leave"});
}

// Runs a check in a child process: the library and the singletons are loaded once per process.
template<typename Check> void InItsOwnProcess(Check check)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            check();
            std::exit(testing::Test::HasFailure() ? 1 : 0);
        },
        testing::ExitedWithCode(0),
        "");
}

/// The number of different results when eight threads call `ask` at the same moment.
template<typename Ask> std::size_t DifferentResults(Ask ask)
{
    constexpr std::size_t kThreads = 8;
    std::atomic<std::size_t> waiting{0};
    std::vector<decltype(ask())> seen(kThreads);
    std::vector<std::thread> threads;
    for (auto &result : seen) {
        threads.emplace_back([&waiting, &result, &ask] {
            ++waiting;
            while (waiting != kThreads) {
                std::this_thread::yield();
            }
            result = ask();
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_NE(seen.front(), nullptr);
    return std::set<decltype(ask())>(seen.begin(), seen.end()).size();
}

TEST(ConfigProcessDeathTest, AllThreadsGetTheOneInstanceWhichStays)
{
    InItsOwnProcess([] {
        contract::FakeLibrary library(CONFIG_FAKE);
        EXPECT_EQ(DifferentResults([] { return UIUtility::instance(); }), 1U);
        EXPECT_EQ(DifferentResults([] { return CVantorConfigInstance::Instance(); }), 1U);
        EXPECT_EQ(library.NewNotes(), (Notes{"create_config result=object", "init_config mode=0"}));
    });
}

TEST(ConfigProcessDeathTest, WithoutALibraryItAnswersDefaults)
{
    InItsOwnProcess([] {
        const LogWatch log;
        auto config = std::make_unique<CVantorConfigInstance>();
        ExpectLog({"::CVantorConfigInstance() enter",
                   "load vantoronlineconfig.dll error!",
                   "::CVantorConfigInstance() leave"});
        EXPECT_EQ(config->GetString("key", "fallback"), "fallback");
        EXPECT_EQ(LogWatch::NewLines().at(1), "vantoronlineconfig need Create!");
        config.reset();
        ExpectLog({"::~CVantorConfigInstance enter", "::~CVantorConfigInstance leave"});
    });
}

TEST(ConfigProcessDeathTest, WithoutMemoryThereIsNoInstanceAndNoOffersAreConfigured)
{
    InItsOwnProcess([] {
        outOfMemory = true;
        EXPECT_FALSE(OfferSources::System().configured());
        outOfMemory = false;
        EXPECT_EQ(UIUtility::instance()->configInstance(), nullptr);
        EXPECT_EQ(CVantorConfigInstance::Instance(), nullptr);
    });
}

TEST(ConfigProcessDeathTest, AnObjectThatCannotBeReleasedIsUsedAndThenLeftAlone)
{
    InItsOwnProcess([] {
        contract::FakeLibrary library(CONFIG_FAKE, VANTOR_RELEASE_CONFIG);
        const LogWatch log;
        auto config = std::make_unique<CVantorConfigInstance>();
        EXPECT_TRUE(LogWatch::NewLines().contains(
            "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet= true"));
        EXPECT_EQ(config->GetString("a", "b"), "b");
        LogWatch::NewLines();
        library.NewNotes();
        config.reset();
        EXPECT_EQ(library.NewNotes(), Notes{});
        ExpectLog({"::~CVantorConfigInstance enter", "::~CVantorConfigInstance leave"});
    });
}

TEST(ConfigProcessDeathTest, TheLibraryStaysWhenItsClientHasGone)
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

// The client calls the unresolved null pointer. Required: docs/security.md.
TEST(ConfigProcessDeathTest, ALibraryWithoutCreateConfigCrashesTheProcess)
{
    if (QLibrary::resolve("ntdll", "wine_get_version") != nullptr) {
        GTEST_SKIP() << "Wine shows a dialog about the crash, which waits. A scenario covers this.";
    }
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            // On Windows, without a console, the log would go to the debugger.
            qputenv("QT_FORCE_STDERR_LOGGING", "1");
            // cppcheck-suppress unreadVariable
            const contract::FakeLibrary library(CONFIG_FAKE, VANTOR_CREATE_CONFIG);
            const CVantorConfigInstance config;
        },
        "CVantorConfigInstance\\(\\) enter");
}

} // namespace
