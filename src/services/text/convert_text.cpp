#include "services/text/convert_text.h"

#include <QByteArray>

namespace {

QByteArray Encoded(const QString &text, const QString &encoding)
{
    if (encoding.compare(QLatin1String("Local8Bit"), Qt::CaseInsensitive) == 0) {
        return text.toLocal8Bit();
    }
    if (encoding.compare(QLatin1String("Latin"), Qt::CaseInsensitive) == 0) {
        return text.toLatin1();
    }
    return text.toUtf8();
}

} // namespace

std::string ConvertText(const QString &text, const QString &encoding)
{
    // Without a length: deliberately cut at the first NUL.
    return Encoded(text, encoding).constData();
}
