// Any text as the product's INI file.

#include "platform/posix/narrow_text.h"
#include "platform/private_profile.h"
#include "tests/fuzz/fuzz.h"
#include "tests/unit/platform/support/scratch_folder.h"

#include <algorithm>

namespace {

constexpr std::size_t kCapacity = 100;

std::wstring Read(const std::string &content)
{
    static const contract::ScratchFolder folder;
    static const auto file = folder / "config.ini";
    contract::WriteFile(file, content);
    return platform::ReadProfileText(L"main", L"versionNo", L"18.0", kCapacity, file.wstring());
}

std::string WithCarriageReturns(const std::string &text)
{
    std::string windows;
    for (const char character : text) {
        windows += character == '\n' ? "\r" : "";
        windows += character;
    }
    return windows;
}

// Blanks at both ends go, and then one pair of quotation marks.
std::wstring Value(std::wstring text)
{
    constexpr const wchar_t *kBlanks = L" \t\r";
    text.erase(text.find_last_not_of(kBlanks) + 1);
    text.erase(0, std::min(text.find_first_not_of(kBlanks), text.size()));
    const bool quoted = text.size() > 1 && (text.front() == L'"' || text.front() == L'\'') &&
                        text.back() == text.front();
    return (quoted ? text.substr(1, text.size() - 2) : text).substr(0, kCapacity - 1);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(Whole(data, size));
    const std::wstring read = Read(text);
    Check(read.size() < kCapacity, "there is room for its zero");
    Check(Read(WithCarriageReturns(text)) == read, "line ends do not matter");
    Check(Read(text + "\n[end]\nversionNo=1\n") == read, "other sections do not matter");
    const std::wstring later = Read(text + "\n[x]\n[main]\nversionNo=7\n");
    Check(later == read || (read == L"18.0" && later == L"7"), "the first section counts");
    Check(Read("[main]\na=b\n[x]\n" + text) == L"18.0", "a later one of its name does not");

    const std::string line = text.substr(0, text.find('\n'));
    Check(Read("; of the setup\n\n[Main]\n\tVERSIONNO = " + line + "\nversionNo=2\n") ==
              Value(platform::ToWide(line)),
          "the value is what stands there");
    return 0;
}
