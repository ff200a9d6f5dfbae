#pragma once

#include <QDate>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <string>

/// Where offers come from: the remote configuration and the facts about the installed product.
struct OfferSources
{
    /// Whether there is a configuration to ask.
    std::function<bool()> configured;
    /// The configured text of a key; empty when there is none.
    std::function<QString(const QString &key)> text;
    /// Tells the configuration the version tag (UTF-8) that qualifies its look-ups.
    std::function<void(const std::string &tag)> setVersionTag;
    /// Facts about the product; empty when unknown.
    std::function<QString()> oemName;
    std::function<QString()> xurlId;
    std::function<QString()> versionNo;
    std::function<QDate()> today;

    /// The real ones.
    static OfferSources System();
};

/// The version tag: the word that selects this program's group of configured values, and the
/// product's version without its dots.
std::string ConfigVersionTag(const QString &versionNo);

/// The offer of a type: "expired" always, "price" and "url" for the types 1 to 4.
QVariantMap ComposeOffer(int type, const OfferSources &sources);
