#include "controller/offers.h"
#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"
#include "tests/unit/platform/support/registry_values.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QTextCodec>

#include <memory>
#include <string>

namespace {

QString Entry(const QVariantMap &offer, const char *key)
{
    return offer.value(QString::fromLatin1(key)).toString();
}

class Offers : public testing::Test
{
protected:
    QVariantMap Offer(int type)
    {
        return mgr().getPreferentialLink(type);
    }

    CUninstallMgr &mgr()
    {
        if (!made) {
            made = std::make_unique<CUninstallMgr>(world.Environment());
        }
        return *made;
    }

    FakeEnvironment world;
    std::unique_ptr<CUninstallMgr> made;
};

TEST_F(Offers, AreEmptyWithoutAConfiguration)
{
    world.configured = false;
    for (int type = 0; type <= 5; ++type) {
        EXPECT_EQ(Offer(type), QVariantMap());
    }
    EXPECT_EQ(world.Asked(), QStringList());
    // The prefix waits for a configuration.
    world.configured = true;
    Offer(0);
    EXPECT_EQ(world.Asked().first(), QStringLiteral("tag uninstall__180"));
}

TEST_F(Offers, OfOtherTypesOnlyExpire)
{
    for (const int type : {-1, 0, 5, 100}) {
        EXPECT_EQ(Offer(type).keys(), QStringList{QStringLiteral("expired")}) << type;
    }
    EXPECT_EQ(world.Asked(), QStringList{QStringLiteral("tag uninstall__180")});
}

TEST_F(Offers, HaveTheKeysOfTheirType)
{
    world.texts = {
        {QStringLiteral("uninstall_coupon_4_ktr"), QStringLiteral("$1")},
        {QStringLiteral("url_cart_with_ktr_uninstall_coupon"),
         QStringLiteral("https://one.example")},
        {QStringLiteral("uninstall_coupon_4_others"), QStringLiteral("$2")},
        {QStringLiteral("url_landing_with_others_uninstall_coupon"),
         QStringLiteral("https://two.example")},
    };
    EXPECT_EQ(Entry(Offer(1), "price"), QStringLiteral("$1"));
    EXPECT_EQ(Entry(Offer(1), "url"), QStringLiteral("https://one.example"));
    for (const int type : {2, 3, 4}) {
        EXPECT_EQ(Entry(Offer(type), "price"), QStringLiteral("$2")) << type;
        EXPECT_EQ(Entry(Offer(type), "url"), QStringLiteral("https://two.example")) << type;
        EXPECT_EQ(Offer(type).keys(),
                  (QStringList{
                      QStringLiteral("expired"), QStringLiteral("price"), QStringLiteral("url")}));
    }
}

TEST_F(Offers, AskForPriceAndThenUrlAfterThePrefix)
{
    Offer(1);
    Offer(2);
    EXPECT_EQ(world.Asked(),
              (QStringList{QStringLiteral("tag uninstall__180"),
                           QStringLiteral("text uninstall_coupon_4_ktr"),
                           QStringLiteral("text url_cart_with_ktr_uninstall_coupon"),
                           QStringLiteral("text uninstall_coupon_4_others"),
                           QStringLiteral("text url_landing_with_others_uninstall_coupon")}));
}

TEST_F(Offers, OnlyTheUrlKeyCarriesTheOemNameInSmallLetters)
{
    world.oemName = QStringLiteral("ACME Corp");
    Offer(3);
    EXPECT_EQ(
        world.Asked().mid(1),
        (QStringList{QStringLiteral("text uninstall_coupon_4_others"),
                     QStringLiteral("text url_landing_with_others_uninstall_coupon__acme corp")}));
}

TEST_F(Offers, AnOemNameWithAPlaceholderStaysAsItIs)
{
    world.oemName = QStringLiteral("%1%2");
    Offer(1);
    EXPECT_EQ(world.Asked().last(),
              QStringLiteral("text url_cart_with_ktr_uninstall_coupon__%1%2"));
}

struct Tail
{
    const char *url;
    const char *xurlId;
    const char *result;
};

TEST_F(Offers, TheIdentifierIsAppendedToTheUrl)
{
    for (const Tail &tail :
         {Tail{"https://a.example", "5521", "https://a.example?x-url=1-5521"},
          Tail{"https://a.example/?p=1", "5521", "https://a.example/?p=1&x-url=1-5521"},
          Tail{"https://a.example?", "5521", "https://a.example?&x-url=1-5521"},
          Tail{"", "5521", "?x-url=1-5521"},
          Tail{"https://a.example", "", "https://a.example"},
          Tail{"", "", ""},
          Tail{"https://a.example", "%1&x", "https://a.example?x-url=1-%1&x"}}) {
        world.texts[QStringLiteral("url_cart_with_ktr_uninstall_coupon")] =
            QString::fromLatin1(tail.url);
        world.xurlId = QString::fromLatin1(tail.xurlId);
        EXPECT_EQ(Entry(Offer(1), "url"), QString::fromLatin1(tail.result));
    }
}

struct Day
{
    int year;
    int month;
    int day;
    const char *next;
};

TEST_F(Offers, ExpireTomorrow)
{
    for (const Day &day : {Day{2025, 12, 31, "01/01/2026"},
                           Day{2025, 2, 28, "03/01/2025"},
                           Day{2024, 2, 28, "02/29/2024"},
                           Day{2026, 11, 21, "11/22/2026"}}) {
        world.today = QDate(day.year, day.month, day.day);
        EXPECT_EQ(Entry(Offer(1), "expired"), QString::fromLatin1(day.next));
    }
}

TEST_F(Offers, ExpireInLatinDigitsUnderEveryLocale)
{
    world.today = QDate(2025, 12, 31);
    const QLocale before;
    for (const char *locale : {"ar_EG", "fa_IR", "th_TH", "tr_TR", "hi_IN", "C"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        EXPECT_EQ(Entry(Offer(1), "expired"), QStringLiteral("01/01/2026")) << locale;
    }
    QLocale::setDefault(before);
}

TEST_F(Offers, ThePrefixIsAppliedOnce)
{
    Offer(1);
    Offer(2);
    Offer(7);
    EXPECT_EQ(world.Asked().filter(QStringLiteral("tag ")).size(), 1);
}

TEST_F(Offers, EachControllerAppliesThePrefixAnew)
{
    Offer(1);
    CUninstallMgr(world.Environment()).getPreferentialLink(1);
    EXPECT_EQ(world.Asked().filter(QStringLiteral("tag ")).size(), 2);
}

TEST(OfferSources, TodayIsTheUsersDay)
{
    QDate before;
    QDate seen;
    do { // anew when midnight passes in between
        before = QDate::currentDate();
        seen = OfferSources::System().today();
    } while (QDate::currentDate() != before);
    EXPECT_EQ(seen, before);
}

TEST(OfferSources, FactsAreInTheSystemsEncoding)
{
    contract::RegistryValues values;
    values.Set("Software\\TORVAN\\KTR\\Version", "OEM", std::string("\xA4") + '\0');
    values.Set("Software\\TORVAN\\KTR_dd", "xurlID", std::string("\xE9") + '\0');
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    const OfferSources system = OfferSources::System();
    EXPECT_EQ(system.oemName(), QString(QChar(0x20AC)));
    EXPECT_EQ(system.xurlId(), QString(QChar(0xE9)));
    QTextCodec::setCodecForLocale(before);
}

struct Version
{
    const char *number;
    const char *tag;
};

TEST(ConfigVersionTag, IsTheSegmentAndTheDigits)
{
    for (const Version &version : {Version{"18.0", "uninstall__180"},
                                   Version{"19.2.1", "uninstall__1921"},
                                   Version{"", "uninstall"},
                                   Version{"...", "uninstall"},
                                   Version{"beta 2", "uninstall__beta 2"}}) {
        EXPECT_EQ(ConfigVersionTag(QString::fromLatin1(version.number)), version.tag);
    }
    EXPECT_EQ(ConfigVersionTag(QString::fromUtf8("\xC3\xA9")), "uninstall__\xC3\xA9");
}

} // namespace
