#include "controller/offers.h"
#include "controller/uninstall_mgr.h"
#include "testkit/fakes/fake_environment.h"
#include "tests/unit/platform/support/registry_values.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QTextCodec>

#include <string>

namespace {

class Offers : public testing::Test
{
protected:
    QVariantMap Offer(int type)
    {
        return manager_.getPreferentialLink(type);
    }

    QString Entry(int type, const char *key)
    {
        return Offer(type).value(key).toString();
    }

    FakeEnvironment fake_;
    CUninstallMgr manager_{fake_.Environment()};
};

TEST_F(Offers, AreEmptyWithoutAConfiguration)
{
    fake_.configured = false;
    for (int type = 0; type <= 5; ++type) {
        EXPECT_EQ(Offer(type), QVariantMap());
    }
    EXPECT_EQ(fake_.Asked(), QStringList());
    // The prefix waits for a configuration.
    fake_.configured = true;
    Offer(0);
    EXPECT_EQ(fake_.Asked().first(), "tag uninstall__180");
}

TEST_F(Offers, OfOtherTypesOnlyExpire)
{
    for (const int type : {-1, 0, 5, 100}) {
        EXPECT_EQ(Offer(type).keys(), QStringList{"expired"}) << type;
    }
    EXPECT_EQ(fake_.Asked(), QStringList{"tag uninstall__180"});
}

TEST_F(Offers, HaveTheKeysOfTheirType)
{
    fake_.texts = {
        {"uninstall_coupon_4_ktr", "$1"},
        {"url_cart_with_ktr_uninstall_coupon", "https://one.example"},
        {"uninstall_coupon_4_others", "$2"},
        {"url_landing_with_others_uninstall_coupon", "https://two.example"},
    };
    EXPECT_EQ(Entry(1, "price"), "$1");
    EXPECT_EQ(Entry(1, "url"), "https://one.example");
    for (const int type : {2, 3, 4}) {
        EXPECT_EQ(Entry(type, "price"), "$2") << type;
        EXPECT_EQ(Entry(type, "url"), "https://two.example") << type;
        EXPECT_EQ(Offer(type).keys(), (QStringList{"expired", "price", "url"}));
    }
}

TEST_F(Offers, AskForPriceAndThenUrlAfterThePrefix)
{
    Offer(1);
    Offer(2);
    EXPECT_EQ(fake_.Asked(),
              (QStringList{"tag uninstall__180",
                           "text uninstall_coupon_4_ktr",
                           "text url_cart_with_ktr_uninstall_coupon",
                           "text uninstall_coupon_4_others",
                           "text url_landing_with_others_uninstall_coupon"}));
}

TEST_F(Offers, OnlyTheUrlKeyCarriesTheOemNameInLowerCase)
{
    fake_.oemName = "ACME %1%2";
    Offer(3);
    EXPECT_EQ(fake_.Asked().mid(1),
              (QStringList{"text uninstall_coupon_4_others",
                           "text url_landing_with_others_uninstall_coupon__acme %1%2"}));
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
          {"https://a.example/?p=1", "5521", "https://a.example/?p=1&x-url=1-5521"},
          {"https://a.example?", "5521", "https://a.example?&x-url=1-5521"},
          {"", "5521", "?x-url=1-5521"},
          {"https://a.example", "", "https://a.example"},
          {"", "", ""},
          {"https://a.example", "%1&x", "https://a.example?x-url=1-%1&x"}}) {
        fake_.texts["url_cart_with_ktr_uninstall_coupon"] = tail.url;
        fake_.xurlId = tail.xurlId;
        EXPECT_EQ(Entry(1, "url"), tail.result);
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
                           {2025, 2, 28, "03/01/2025"},
                           {2024, 2, 28, "02/29/2024"},
                           {2026, 11, 21, "11/22/2026"}}) {
        fake_.today = QDate(day.year, day.month, day.day);
        EXPECT_EQ(Entry(1, "expired"), day.next);
    }
}

TEST_F(Offers, ExpireInLatinDigitsUnderEveryLocale)
{
    fake_.today = QDate(2025, 12, 31);
    const QLocale before;
    for (const char *locale : {"ar_EG", "fa_IR", "th_TH", "tr_TR", "hi_IN", "C"}) {
        QLocale::setDefault(QLocale(locale));
        EXPECT_EQ(Entry(1, "expired"), "01/01/2026") << locale;
    }
    QLocale::setDefault(before);
}

TEST_F(Offers, EachControllerAppliesThePrefixOnce)
{
    Offer(1);
    Offer(2);
    Offer(7);
    EXPECT_EQ(fake_.Asked().filter("tag ").size(), 1);
    CUninstallMgr(fake_.Environment()).getPreferentialLink(1);
    EXPECT_EQ(fake_.Asked().filter("tag ").size(), 2);
}

TEST(OfferSources, TodayIsTheUsersDay)
{
    QDate before;
    QDate seen;
    do { // again when midnight passes in between
        before = QDate::currentDate();
        seen = OfferSources::System().today();
    } while (QDate::currentDate() != before);
    EXPECT_EQ(seen, before);
}

TEST(OfferSources, FactsAreInTheSystemsEncoding)
{
    contract::RegistryValues values;
    // Binary: Windows would convert text to UTF-16 and back.
    values.Set("Software\\TORVAN\\KTR\\Version", "OEM", "\xA4", 3);
    values.Set("Software\\TORVAN\\KTR_dd", "xurlID", "\xE9", 3);
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

TEST(ConfigVersionTag, IsTheSegmentAndTheVersionWithoutDots)
{
    for (const Version &version : {Version{"18.0", "uninstall__180"},
                                   {"19.2.1", "uninstall__1921"},
                                   {"", "uninstall"},
                                   {"...", "uninstall"},
                                   {"beta 2", "uninstall__beta 2"}}) {
        EXPECT_EQ(ConfigVersionTag(version.number), version.tag);
    }
    EXPECT_EQ(ConfigVersionTag(QString::fromUtf8("\xC3\xA9")), "uninstall__\xC3\xA9");
}

} // namespace
