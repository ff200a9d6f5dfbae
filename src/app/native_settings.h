#pragma once

#include <QString>

/// The text `name` under `key` ("SOFTWARE\\...") of HKEY_LOCAL_MACHINE as QSettings reads it, or
/// `fallback` when there is none. Text of any length; an empty one stays empty. Never creates
/// anything in the registry. Any thread.
QString ReadNativeSetting(const QString &key, const QString &name, const QString &fallback);
