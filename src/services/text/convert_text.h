#pragma once

#include <QString>

#include <string>

/// `text` as 8-bit text up to its first NUL. `encoding`, case-insensitive: "Local8Bit" is
/// the system's ANSI encoding, "Latin" is Latin-1, everything else UTF-8. Any thread.
std::string ConvertText(const QString &text, const QString &encoding);
