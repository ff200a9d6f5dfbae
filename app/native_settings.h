#pragma once

#include <QString>

/// The text `name` under `path` ("HKEY_LOCAL_MACHINE\\SOFTWARE\\...") of the system's settings, or
/// `fallback` when there is none. Text of any length; an empty one stays empty. Never creates
/// anything in the settings. Any thread.
QString ReadNativeSetting(const QString &path, const QString &name, const QString &fallback);
