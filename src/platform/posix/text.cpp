#include "platform/text.h"

#include <algorithm>

namespace platform {
namespace {

// As `_wcsicmp` does in the "C" locale, which a Windows program has until it asks for another one:
// only the letters A to Z have a case.
wchar_t ToLowerAscii(wchar_t character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                  : character;
}

} // namespace

const char kNativeSeparator = '/';
const wchar_t kNativeSeparatorWide = L'/';

bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right)
{
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(), [](wchar_t one, wchar_t other) {
            return ToLowerAscii(one) == ToLowerAscii(other);
        });
}

} // namespace platform
