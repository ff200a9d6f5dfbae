#include "app/native_settings.h"

#include "platform/registry.h"

#include <QSettings>
#include <QVariant>

QString ReadNativeSetting(const QString &key, const QString &name, const QString &fallback)
{
    // QSettings would create a missing key if it may write.
    if (!platform::RegistryKey::OpenLocalMachine(key.toLocal8Bit().toStdString())) {
        return fallback;
    }
    const QSettings settings(QStringLiteral("HKEY_LOCAL_MACHINE\\") + key, QSettings::NativeFormat);
    return settings.value(name, fallback).toString();
}
