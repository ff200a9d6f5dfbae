#pragma once

#include <string>
#include <string_view>

namespace os {

/// Between the UTF-8 of the fakes and the UTF-16 of the system. An unpaired surrogate becomes
/// the replacement character.
std::string ToUtf8(std::wstring_view text);
std::wstring ToWide(std::string_view text);

} // namespace os
