#pragma once

#include <QString>

/// Whether a system with this kernel version text is one that draws the shadow of a frameless
/// window well: first part 10 or more, or else last part 10240 or more. False for a text without
/// parts.
bool KernelQualifiesForShadow(const QString &kernelVersion);
