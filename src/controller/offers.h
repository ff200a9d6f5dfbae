#pragma once

#include <QDate>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <string>

/// Where offers come from: the remote configuration and the facts about the installed product.
struct OfferSources
{
    /// Whether the configuration client exists.
    std::function<bool()> configured;
    /// The configured text of a key; empty when there is none.
    std::function<QString(const QString &key)> text;
    /// Tells the configuration the version tag (UTF-8) that qualifies its look-ups.
    std::function<void(const std::string &tag)> setVersionTag;
    /// Facts about the product, as product_facts.h describes them.
    std::function<QString()> oemName;
    std::function<QString()> xurlId;
    std::function<QString()> versionNo;
    std::function<QDate()> today;

    /// The production implementation.
    static OfferSources System();
};

/// The version tag, such as "uninstall__180": this program's configuration group, and the product's
/// version without its dots.
std::string ConfigVersionTag(const QString &versionNo);

/// The offer of a type: "expired" always, "price" and "url" for the types 1 to 4.
QVariantMap ComposeOffer(int type, const OfferSources &sources);
