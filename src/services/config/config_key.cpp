#include "services/config/config_key.h"

ConfigKey SplitConfigKey(const QString &key)
{
    const QString separator = QStringLiteral("__");
    const int place = key.indexOf(separator);
    if (place < 0) {
        return {key, QString()};
    }
    const QString name = key.left(place);
    QString suffix = key;
    suffix.replace(name + separator, QString());
    return {name, suffix};
}
