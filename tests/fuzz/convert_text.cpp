// Conversion to 8-bit text, against encoders written for this purpose. Fields: the encoding's name,
// the text. Runs in a UTF-8 locale.

#include "services/text/convert_text.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"

#include <QTextCodec>

namespace {

std::string Latin(const QString &text)
{
    std::string bytes;
    for (const QChar unit : text) {
        bytes += unit.unicode() <= 0xFF ? static_cast<char>(unit.unicode()) : '?';
    }
    return bytes;
}

void Append(std::string &bytes, char32_t character)
{
    const auto tail = [character](unsigned shift) {
        return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        bytes += static_cast<char>(character);
    } else if (character < 0x800) {
        bytes += {static_cast<char>(0xC0U | (character >> 6U)), tail(0)};
    } else if (character < 0x10000) {
        bytes += {static_cast<char>(0xE0U | (character >> 12U)), tail(6), tail(0)};
    } else {
        bytes += {static_cast<char>(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
    }
}

std::string Utf8(const QString &text)
{
    std::string bytes;
    for (int at = 0; at < text.size(); ++at) {
        const char32_t unit = text[at].unicode();
        const bool pair = (unit & 0xFC00U) == 0xD800 && at + 1 < text.size() &&
                          (text[at + 1].unicode() & 0xFC00U) == 0xDC00;
        if (pair) {
            ++at;
            Append(bytes, 0x10000 + ((unit - 0xD800) << 10U) + (text[at].unicode() - 0xDC00U));
        } else {
            Append(bytes, (unit & 0xF800U) == 0xD800 ? U'?' : unit);
        }
    }
    return bytes;
}

// Only the letters A to Z of the names have two cases.
bool IsCalled(const std::string &name, std::string_view small)
{
    std::string letters = name;
    for (char &letter : letters) {
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    }
    return letters == small;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const auto fields = Fields<2>(data, size);
    const QString encoding = Text(fields[0]);
    const QString text = Text(fields[1]);
    const QString beginning = text.left(text.indexOf(QChar(0)));
    const std::string converted = ConvertText(text, encoding);
    const bool latin = IsCalled(fields[0], "latin");
    // What the system's encoding makes of half a character is its own affair.
    if (!IsCalled(fields[0], "local8bit") || !HasSingleSurrogates(beginning)) {
        Check(converted == (latin ? Latin(beginning) : Utf8(beginning)),
              "the text up to its first zero, in the encoding that was asked for");
    }
    Check(converted.find('\0') == std::string::npos, "there is no zero in it");
    return 0;
}
