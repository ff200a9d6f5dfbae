#include "app/native_settings.h"

#include "platform/registry.h"

#include <QSettings>
#include <QVariant>

QString ReadNativeSetting(const QString &path, const QString &name, const QString &fallback)
{
    // QSettings creates a key that it may write and does not find.
    const QString root = QStringLiteral("HKEY_LOCAL_MACHINE\\");
    if (!path.startsWith(root) || !platform::RegistryKey::OpenLocalMachine(
                                      path.mid(root.size()).toLocal8Bit().toStdString())) {
        return fallback;
    }
    const QSettings settings(path, QSettings::NativeFormat);
    return settings.value(name, fallback).toString();
}
