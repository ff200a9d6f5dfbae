#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// The text of `key` in `section` of the INI file `file`, without whitespace and one pair of
/// quotation marks round it; `fallback` when there is no such file, section or key. At most
/// `capacity` - 1 characters. Section and key are case-insensitive. Any thread.
std::wstring ReadProfileText(const std::wstring &section,
                             const std::wstring &key,
                             const std::wstring &fallback,
                             std::size_t capacity,
                             const std::wstring &file);

} // namespace platform
