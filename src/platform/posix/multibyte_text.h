#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Multibyte text in the encoding of the environment's locale as wide characters. A byte that is
/// not part of a character becomes U+DC00 plus its value, which no decoded text contains: different
/// bytes stay different, and `ToMultibyte` gives them back. Any thread, also before `main`.
std::wstring ToWide(std::string_view bytes);

/// The way back. A character that the encoding cannot express becomes a question mark.
std::string ToMultibyte(std::wstring_view text);

} // namespace platform
