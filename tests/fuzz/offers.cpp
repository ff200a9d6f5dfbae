// Offers from any configured texts and product facts. Fields: three bytes of type and day, the
// configured text, the OEM name, the identifier, the version number.

#include "controller/offers.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"

#include <QStringList>

#include <cstdio>

namespace {

// "MM/dd/yyyy" of the next day, calculated without QDate.
QString Tomorrow(const QDate &today)
{
    int day = today.day() + 1;
    int month = today.month();
    int year = today.year();
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int days = month == 2 ? (leap ? 29 : 28) : 30 + (month + (month > 7 ? 1 : 0)) % 2;
    if (day > days) {
        day = 1;
        year += month == 12 ? 1 : 0;
        month = month % 12 + 1;
    }
    return QString::asprintf("%02d/%02d/%04d", month, day, year);
}

void CheckTag(const QString &versionNo)
{
    const QString kept = versionNo.split(QLatin1Char('.')).join(QString());
    const QString tag =
        kept.isEmpty() ? QStringLiteral("uninstall") : QStringLiteral("uninstall__") + kept;
    Check(ConfigVersionTag(versionNo) == tag.toStdString(), "the tag is the version without dots");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t kHead = 3;
    if (size < kHead) {
        return 0;
    }
    const int type = data[0] % 8 - 1;
    const QDate today = QDate(1901, 1, 1).addDays(data[1] * 256 + data[2]);
    const auto fields = Fields<4>(data + kHead, size - kHead);
    const QString configured = Text(fields[0]);
    const QString oem = Text(fields[1]);
    const QString identifier = Text(fields[2]);
    QStringList asked;
    OfferSources sources;
    sources.text = [&](const QString &key) {
        asked << key;
        return configured;
    };
    sources.oemName = [&] {
        return oem;
    };
    sources.xurlId = [&] {
        return identifier;
    };
    sources.today = [&] {
        return today;
    };
    const QVariantMap offer = ComposeOffer(type, sources);

    CheckTag(Text(fields[3]));
    Check(offer.value(QStringLiteral("expired")) == Tomorrow(today), "the offer expires tomorrow");
    if (type < 1 || type > 4) {
        Check(offer.size() == 1 && asked.isEmpty(), "other types have an expiry only");
        return 0;
    }
    // The unit tests check the keys' names. Here the expected keys are those without an OEM, plus
    // its name after the link's key; all types from 2 on share their keys.
    QStringList expected;
    sources.text = [&](const QString &key) {
        expected << key;
        return QString();
    };
    sources.oemName = [] {
        return QString();
    };
    ComposeOffer(type == 1 ? 1 : 2, sources);
    if (!oem.isEmpty()) {
        expected.last() += QStringLiteral("__") + oem.toLower();
    }
    Check(asked == expected && asked.size() == 2, "the price, then the link is queried");
    Check(offer.size() == 3, "the offer has an expiry, a price and a link");
    Check(offer.value(QStringLiteral("price")) == configured, "the price is as configured");
    QString link = configured;
    if (!identifier.isEmpty()) {
        link += configured.count(QLatin1Char('?')) > 0 ? QLatin1Char('&') : QLatin1Char('?');
        link += QStringLiteral("x-url=1-") + identifier;
    }
    Check(offer.value(QStringLiteral("url")) == link, "the link has the identifier");
    return 0;
}
