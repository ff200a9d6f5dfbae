#include "controller/offers.h"

#include "controller/ui_utility.h"
#include "services/config/vantor_config_instance.h"
#include "services/product/product_facts.h"

#include <QLocale>

namespace {

struct OfferKeys
{
    const char *price;
    const char *url;
};

constexpr OfferKeys kOwnProduct = {"uninstall_coupon_4_ktr", "url_cart_with_ktr_uninstall_coupon"};
constexpr OfferKeys kOtherProducts = {"uninstall_coupon_4_others",
                                      "url_landing_with_others_uninstall_coupon"};

const OfferKeys *FindOfferKeys(int type)
{
    if (type == 1) {
        return &kOwnProduct;
    }
    return type >= 2 && type <= 4 ? &kOtherProducts : nullptr;
}

QString ComposeOfferUrl(QString key, const OfferSources &sources)
{
    const QString oem = sources.oemName();
    if (!oem.isEmpty()) {
        key = QStringLiteral("%1__%2").arg(key, oem).toLower();
    }
    QString url = sources.text(key);
    const QString xurlId = sources.xurlId();
    // Appended even to an empty URL, so that the download id is never lost.
    if (!xurlId.isEmpty()) {
        const QString separator = QLatin1String(url.contains(QLatin1Char('?')) ? "&" : "?");
        url += QStringLiteral("%1x-url=1-%2").arg(separator, xurlId);
    }
    return url;
}

} // namespace

OfferSources OfferSources::System()
{
    OfferSources system;
    const auto config = [] {
        return UIUtility::instance()->configInstance();
    };
    system.configured = [config] {
        return config() != nullptr;
    };
    system.text = [config](const QString &key) {
        return config()->GetString(key, QString());
    };
    system.setVersionTag = [config](const std::string &tag) {
        config()->SetPreFix(tag);
    };
    system.oemName = [] {
        return QString::fromLocal8Bit(GetOemName().c_str());
    };
    system.xurlId = [] {
        return QString::fromLocal8Bit(GetXurlId().c_str());
    };
    system.versionNo = [] {
        return QString::fromStdWString(GetConfigVersionNo());
    };
    system.today = QDate::currentDate;
    return system;
}

std::string ConfigVersionTag(const QString &versionNo)
{
    const QString segment = QStringLiteral("uninstall");
    const QString digits = QString(versionNo).remove(QLatin1Char('.'));
    return (digits.isEmpty() ? segment : segment + QStringLiteral("__") + digits).toStdString();
}

QVariantMap ComposeOffer(int type, const OfferSources &sources)
{
    // Every offer ends tomorrow. In the C locale: digits must not follow the user's.
    const QString expired =
        QLocale::c().toString(sources.today().addDays(1), QStringLiteral("MM/dd/yyyy"));
    QVariantMap offer{{QStringLiteral("expired"), expired}};
    if (const OfferKeys *const keys = FindOfferKeys(type)) {
        offer.insert(QStringLiteral("price"), sources.text(QLatin1String(keys->price)));
        offer.insert(QStringLiteral("url"), ComposeOfferUrl(QLatin1String(keys->url), sources));
    }
    return offer;
}
