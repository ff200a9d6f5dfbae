#pragma once

#include <QString>

#include <string>

/// Decodes UTF-8 to UTF-16. UTF-8 has no unpaired surrogates, so U+E000 to U+E7FF become those.
inline QString Text(const std::string &utf8)
{
    QString text = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
    for (QChar &unit : text) {
        if (unit >= QChar(0xE000) && unit <= QChar(0xE7FF)) {
            unit = QChar(unit.unicode() - 0x800);
        }
    }
    return text;
}

/// Whether the text has an unpaired surrogate, which UTF-8 cannot encode.
inline bool HasUnpairedSurrogates(const QString &text)
{
    return QString::fromUtf8(text.toUtf8()) != text;
}
