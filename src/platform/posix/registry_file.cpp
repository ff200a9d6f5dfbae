#include "platform/posix/registry_file.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kRoot = "hkey_local_machine";
constexpr std::string_view kWhitespace = " \t\r";

std::optional<unsigned long> HexNumber(std::string_view digits)
{
    unsigned long number = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, number, 16);
    return error == std::errc() && stopped == end ? std::optional(number) : std::nullopt;
}

// Reads an export from its beginning to its end, once.
class Reader
{
public:
    explicit Reader(std::string_view text)
        : rest_(text)
    {
    }

    RegistryKeys Read()
    {
        if (rest_.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
            rest_.remove_prefix(kByteOrderMark.size());
        }
        while (!rest_.empty()) {
            SkipWhitespace();
            ReadItem();
            SkipLine();
        }
        return std::move(keys_);
    }

private:
    // A section or a value; anything else (header, comment, garbage) is left for SkipLine.
    void ReadItem()
    {
        if (rest_.empty()) {
            return;
        }
        if (rest_.front() == '[') {
            ReadSection();
        } else if (rest_.front() == '@' || rest_.front() == '"') {
            ReadValue();
        }
    }

    void SkipWhitespace()
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kWhitespace), rest_.size()));
    }

    void SkipLine()
    {
        const std::size_t end = rest_.find('\n');
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    }

    bool Consume(char character)
    {
        if (rest_.empty() || rest_.front() != character) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    void ReadSection()
    {
        current_ = nullptr;
        const std::string_view line = rest_.substr(0, rest_.find('\n'));
        const std::size_t end = line.rfind(']');
        if (end == std::string_view::npos) {
            return;
        }
        std::string path = ToLowerAscii(line.substr(1, end - 1));
        if (path.rfind(std::string(kRoot) + '\\', 0) != 0) {
            return;
        }
        path.erase(0, kRoot.size() + 1);
        current_ = &Create(path);
    }

    RegistryValues &Create(const std::string &path)
    {
        for (std::size_t end = path.find('\\'); end != std::string::npos;
             end = path.find('\\', end + 1)) {
            keys_.try_emplace(path.substr(0, end));
        }
        return keys_[path];
    }

    void ReadValue()
    {
        const std::optional<std::string> name = Consume('@') ? std::string() : ReadQuoted();
        SkipWhitespace();
        if (!name || !Consume('=')) {
            return;
        }
        SkipWhitespace();
        if (std::optional<std::string> data = ReadData(); data && current_ != nullptr) {
            (*current_)[ToLowerAscii(*name)] = std::move(*data);
        }
    }

    std::optional<std::string> ReadData()
    {
        if (!rest_.empty() && rest_.front() == '"') {
            std::optional<std::string> text = ReadQuoted();
            return text ? std::optional(*text + '\0') : std::nullopt;
        }
        if (StartsWith("dword:")) {
            return ReadNumber();
        }
        if (StartsWith("hex")) {
            return ReadBytes();
        }
        return std::nullopt;
    }

    bool StartsWith(std::string_view word) const
    {
        return ToLowerAscii(rest_.substr(0, word.size())) == word;
    }

    // A text between quotation marks, which may go on over several lines.
    std::optional<std::string> ReadQuoted()
    {
        std::string text;
        rest_.remove_prefix(1);
        while (!rest_.empty() && rest_.front() != '"') {
            if (rest_.front() == '\\' && rest_.size() > 1) {
                rest_.remove_prefix(1);
            }
            text += rest_.front();
            rest_.remove_prefix(1);
        }
        return Consume('"') ? std::optional(text) : std::nullopt;
    }

    std::string_view TakeUntil(std::string_view ends)
    {
        const std::string_view taken = rest_.substr(0, rest_.find_first_of(ends));
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::optional<std::string> ReadNumber()
    {
        rest_.remove_prefix(std::string_view("dword:").size());
        const std::optional<unsigned long> number = HexNumber(TakeUntil(" \t\r\n;"));
        if (!number || *number > 0xFFFFFFFFUL) {
            return std::nullopt;
        }
        std::string data;
        for (unsigned shift = 0; shift < 32; shift += 8) {
            data += static_cast<char>((*number >> shift) & 0xFFU);
        }
        return data;
    }

    // "hex:" or "hex(type):", then bytes with commas between; a backslash continues on the next
    // line.
    std::optional<std::string> ReadBytes()
    {
        TakeUntil(":\n");
        if (!Consume(':')) {
            return std::nullopt;
        }
        std::string data;
        while (true) {
            SkipWhitespace();
            if (Consume('\\')) {
                SkipLine();
                continue;
            }
            const std::string_view digits = TakeUntil(", \t\r\n;\\");
            if (digits.empty()) {
                return data;
            }
            const std::optional<unsigned long> byte = HexNumber(digits);
            if (!byte || *byte > 0xFFU) {
                return std::nullopt;
            }
            data += static_cast<char>(*byte);
            SkipWhitespace();
            if (!Consume(',')) {
                return data;
            }
        }
    }

    std::string_view rest_;
    RegistryKeys keys_;
    RegistryValues *current_ = nullptr;
};

} // namespace

std::string ToLowerAscii(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

RegistryKeys ParseRegistry(std::string_view text)
{
    return Reader(text).Read();
}

} // namespace platform
