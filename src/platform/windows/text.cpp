#include "platform/text.h"

#include <cwchar>
#include <string>

namespace platform {

const char kNativeSeparator = '\\';
const wchar_t kNativeSeparatorWide = L'\\';

bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right)
{
    return left.size() == right.size() &&
           ::_wcsicmp(std::wstring(left).c_str(), std::wstring(right).c_str()) == 0;
}

} // namespace platform
