#include "platform/posix/multibyte_text.h"

#include <array>
#include <climits>
#include <clocale>
#include <cwchar>
#include <langinfo.h>

namespace platform {
namespace {

constexpr wchar_t kEscapeBase = 0xDC00;
constexpr wchar_t kEscapeLast = 0xDCFF;

/// Switches the calling thread to the environment's locale while it exists. The global locale is
/// "C" until `setlocale` is called, which is long after the first use here.
class ScopedEnvironmentLocale
{
public:
    ScopedEnvironmentLocale()
        : previous_(::uselocale(Environment()))
    {
    }
    ~ScopedEnvironmentLocale()
    {
        ::uselocale(previous_);
    }
    ScopedEnvironmentLocale(const ScopedEnvironmentLocale &) = delete;
    ScopedEnvironmentLocale &operator=(const ScopedEnvironmentLocale &) = delete;
    ScopedEnvironmentLocale(ScopedEnvironmentLocale &&) = delete;
    ScopedEnvironmentLocale &operator=(ScopedEnvironmentLocale &&) = delete;

private:
    // The C locale is ASCII only; treat file names as UTF-8, as Qt does.
    static bool KnowsAsciiOnly(locale_t locale)
    {
        return std::string_view(::nl_langinfo_l(CODESET, locale)) == "ANSI_X3.4-1968";
    }

    static locale_t Environment()
    {
        static const locale_t environment = [] {
            const locale_t named = ::newlocale(LC_CTYPE_MASK, "", nullptr);
            return named != nullptr && !KnowsAsciiOnly(named)
                       ? named
                       : ::newlocale(LC_CTYPE_MASK, "C.UTF-8", named);
        }();
        return environment;
    }

    locale_t previous_;
};

} // namespace

std::wstring ToWide(std::string_view bytes)
{
    const ScopedEnvironmentLocale locale;
    std::wstring text;
    text.reserve(bytes.size());
    std::mbstate_t state{};
    while (!bytes.empty()) {
        wchar_t character = 0;
        const std::size_t length = std::mbrtowc(&character, bytes.data(), bytes.size(), &state);
        const bool broken = length > bytes.size(); // both error results are huge
        if (broken) {
            state = {};
            character =
                static_cast<wchar_t>(kEscapeBase + static_cast<unsigned char>(bytes.front()));
        }
        text.push_back(character);
        bytes.remove_prefix(broken || length == 0 ? 1 : length);
    }
    return text;
}

std::string ToMultibyte(std::wstring_view text)
{
    const ScopedEnvironmentLocale locale;
    std::string bytes;
    bytes.reserve(text.size());
    std::mbstate_t state{};
    for (const wchar_t character : text) {
        std::array<char, MB_LEN_MAX> encoded{};
        if (character >= kEscapeBase && character <= kEscapeLast) {
            bytes.push_back(static_cast<char>(character - kEscapeBase));
            continue;
        }
        const std::size_t length = std::wcrtomb(encoded.data(), character, &state);
        if (length > encoded.size()) {
            state = {};
            bytes.push_back('?');
        } else {
            bytes.append(encoded.data(), length);
        }
    }
    return bytes;
}

} // namespace platform
