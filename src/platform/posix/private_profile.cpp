#include "platform/private_profile.h"

#include "platform/posix/multibyte_text.h"
#include "platform/posix/text_file.h"
#include "platform/text.h"

#include <optional>
#include <sstream>

namespace platform {

namespace {

std::wstring Trimmed(const std::wstring &text)
{
    constexpr const wchar_t *kWhitespace = L" \t\r";
    const std::size_t begin = text.find_first_not_of(kWhitespace);
    if (begin == std::wstring::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(kWhitespace) - begin + 1);
}

std::wstring Unquoted(const std::wstring &text)
{
    const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                        (text.front() == L'"' || text.front() == L'\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

// The value as the file has it; only the first section of the name counts, and in it the first key.
std::optional<std::wstring>
Find(const std::wstring &content, const std::wstring &section, const std::wstring &key)
{
    std::wistringstream lines(content);
    bool inside = false;
    for (std::wstring line; std::getline(lines, line);) {
        line = Trimmed(line);
        if (line.empty() || line.front() == L';') {
            continue;
        }
        if (line.front() == L'[') {
            if (inside) {
                return std::nullopt;
            }
            inside = EqualsIgnoringCase(line.substr(1, line.find(L']') - 1), section);
            continue;
        }
        const std::size_t equals = line.find(L'=');
        if (inside && equals != std::wstring::npos &&
            EqualsIgnoringCase(Trimmed(line.substr(0, equals)), key)) {
            return Unquoted(Trimmed(line.substr(equals + 1)));
        }
    }
    return std::nullopt;
}

} // namespace

std::wstring ReadProfileText(const std::wstring &section,
                             const std::wstring &key,
                             const std::wstring &fallback,
                             std::size_t capacity,
                             const std::wstring &file)
{
    constexpr wchar_t kByteOrderMark = L'\uFEFF';
    std::wstring content = ToWide(ReadTextFile(ToMultibyte(file)));
    if (!content.empty() && content.front() == kByteOrderMark) {
        content.erase(0, 1);
    }
    const std::wstring text = Find(content, section, key).value_or(fallback);
    return text.substr(0, capacity - 1);
}

} // namespace platform
