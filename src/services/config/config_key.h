#pragma once

#include <QString>

/// A look-up key as the library wants it.
struct ConfigKey
{
    QString name;
    QString suffix;
};

/// Splits at the first "__". The suffix is the whole key without any occurrence of the name
/// followed by "__", not only the leading one.
ConfigKey SplitConfigKey(const QString &key);
