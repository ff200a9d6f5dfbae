#include "platform/private_profile.h"

#include <windows.h>

namespace platform {

std::wstring ReadProfileText(const std::wstring &section,
                             const std::wstring &key,
                             const std::wstring &fallback,
                             std::size_t capacity,
                             const std::wstring &file)
{
    std::wstring text(capacity, L'\0');
    const DWORD length = ::GetPrivateProfileStringW(section.c_str(),
                                                    key.c_str(),
                                                    fallback.c_str(),
                                                    text.data(),
                                                    static_cast<DWORD>(capacity),
                                                    file.c_str());
    text.resize(length);
    return text;
}

} // namespace platform
