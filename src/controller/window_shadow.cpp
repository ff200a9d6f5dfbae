#include "controller/window_shadow.h"

#include <QStringList>

bool KernelQualifiesForShadow(const QString &kernelVersion)
{
    constexpr int kFirstMajorVersion = 10;
    constexpr int kFirstBuild = 10240;
    const QStringList parts = kernelVersion.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    if (parts.isEmpty()) {
        return false;
    }
    return parts.first().toInt() >= kFirstMajorVersion || parts.last().toInt() >= kFirstBuild;
}
