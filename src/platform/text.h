#pragma once

#include <string_view>

/// Text primitives that differ between systems.
namespace platform {

/// The native path separator.
extern const char kNativeSeparator;
extern const wchar_t kNativeSeparatorWide;

/// Whether both texts are equal when the case of letters is ignored (`_wcsicmp`). Any thread.
bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right);

} // namespace platform
