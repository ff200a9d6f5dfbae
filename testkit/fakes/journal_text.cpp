#include "testkit/fakes/fake.h"

#include <cstddef>

namespace fake {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Length of the UTF-8 character at the start of `text`, 0 when there is none.
std::size_t CharacterLength(std::string_view text)
{
    const auto byte = [text](std::size_t index) {
        return index < text.size() && (index == 0 || IsContinuation(text[index]))
                   ? static_cast<unsigned char>(text[index])
                   : 0U;
    };
    const unsigned first = byte(0);
    const unsigned second = byte(1);
    if (first < 0x80U) {
        return 1;
    }
    if (first >= 0xC2U && first <= 0xDFU) {
        return second != 0 ? 2 : 0;
    }
    if (first >= 0xE0U && first <= 0xEFU) {
        const bool overlong = first == 0xE0U && second < 0xA0U;
        const bool surrogate = first == 0xEDU && second > 0x9FU;
        return second != 0 && byte(2) != 0 && !overlong && !surrogate ? 3 : 0;
    }
    if (first >= 0xF0U && first <= 0xF4U) {
        const bool overlong = first == 0xF0U && second < 0x90U;
        const bool beyond = first == 0xF4U && second > 0x8FU;
        return second != 0 && byte(2) != 0 && byte(3) != 0 && !overlong && !beyond ? 4 : 0;
    }
    return 0;
}

void AppendCodePoint(std::string &text, char32_t code)
{
    const auto byte = [](char32_t value) {
        return static_cast<char>(value);
    };
    const auto tail = [&byte](char32_t value) {
        return byte(0x80U | (value & 0x3FU));
    };
    if (code < 0x80U) {
        text += byte(code);
    } else if (code < 0x800U) {
        text += {byte(0xC0U | (code >> 6U)), tail(code)};
    } else if (code < 0x10000U) {
        text += {byte(0xE0U | (code >> 12U)), tail(code >> 6U), tail(code)};
    } else {
        text += {byte(0xF0U | (code >> 18U)), tail(code >> 12U), tail(code >> 6U), tail(code)};
    }
}

} // namespace

std::string FromUtf16(const char16_t *wide)
{
    std::string text;
    for (; *wide != 0; ++wide) {
        const char32_t first = wide[0];
        const char32_t second = wide[1];
        if (first >= 0xD800U && first < 0xDC00U && second >= 0xDC00U && second < 0xE000U) {
            AppendCodePoint(text, 0x10000U + ((first - 0xD800U) << 10U) + (second - 0xDC00U));
            ++wide;
        } else {
            AppendCodePoint(text, first);
        }
    }
    return text;
}

std::string Escape(std::string_view text, std::string_view more)
{
    std::string escaped;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const char first = text.front();
        const auto value = static_cast<unsigned char>(first);
        const bool plain =
            length > 1 || (length == 1 && value >= 0x20 && value != 0x7F && first != '%' &&
                           more.find(first) == std::string_view::npos);
        if (plain) {
            escaped += text.substr(0, length);
            text.remove_prefix(length);
        } else {
            escaped += {'%', kDigits[value / 16U], kDigits[value % 16U]};
            text.remove_prefix(1);
        }
    }
    return escaped;
}

std::string Unescape(std::string_view text)
{
    std::string plain;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '%' && index + 2 < text.size()) {
            const std::size_t high = kDigits.find(text[index + 1]);
            const std::size_t low = kDigits.find(text[index + 2]);
            if (high != std::string_view::npos && low != std::string_view::npos) {
                plain += static_cast<char>(high * 16 + low);
                index += 2;
                continue;
            }
        }
        plain += text[index];
    }
    return plain;
}

std::string Field(std::string_view key, std::string_view value)
{
    return std::string(key) + '=' + Escape(value);
}

std::string Field(std::string_view key, long long value)
{
    return std::string(key) + '=' + std::to_string(value);
}

std::string PathField(std::string_view key, const std::filesystem::path &value)
{
    return Field(key, value.u8string());
}

std::string ListField(std::string_view key, const std::vector<std::string> &items)
{
    std::string field = std::string(key) + '=';
    for (const std::string &item : items) {
        field += '[' + Escape(item, "[]") + ']';
    }
    return field;
}

} // namespace fake
