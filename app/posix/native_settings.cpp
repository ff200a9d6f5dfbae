#include "app/native_settings.h"

#include "platform/registry.h"

QString ReadNativeSetting(const QString &path, const QString &name, const QString &fallback)
{
    const QString root = QStringLiteral("HKEY_LOCAL_MACHINE\\");
    if (!path.startsWith(root)) {
        return fallback;
    }
    const auto key =
        platform::RegistryKey::OpenLocalMachine(path.mid(root.size()).toLocal8Bit().toStdString());
    const auto text = key.Text(name.toLocal8Bit().toStdString());
    return text ? QString::fromLocal8Bit(text->c_str()) : fallback;
}
