#pragma once

#include <QString>

/// Whether this kernel version is Windows 10 or later: its first part is 10 or more, or its last
/// part 10240 or more. False for a text without parts.
bool KernelQualifiesForShadow(const QString &kernelVersion);
