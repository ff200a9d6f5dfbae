#pragma once

#include <QString>

#include <string>

/// A text of any UTF-16 units from UTF-8: since that has no single surrogates, the characters from
/// U+E000 to U+E7FF stand for them.
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

/// Whether UTF-8 can carry every unit of the text.
inline bool HasSingleSurrogates(const QString &text)
{
    return QString::fromUtf8(text.toUtf8()) != text;
}
