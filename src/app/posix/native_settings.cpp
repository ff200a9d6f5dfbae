#include "app/native_settings.h"

#include "platform/registry.h"

QString ReadNativeSetting(const QString &key, const QString &name, const QString &fallback)
{
    const auto opened = platform::RegistryKey::OpenLocalMachine(key.toLocal8Bit().toStdString());
    const auto text = opened.Text(name.toLocal8Bit().toStdString());
    return text ? QString::fromLocal8Bit(text->c_str()) : fallback;
}
