// Any text as the registry editor's export.

#include "platform/posix/registry_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

using platform::ParseRegistry;
using platform::RegistryKeys;

const std::string kRoot = "[HKEY_LOCAL_MACHINE\\";

std::string Quoted(const std::string &text)
{
    std::string quoted = "\"";
    for (const char character : text) {
        quoted += character == '"' || character == '\\' ? "\\" : "";
        quoted += character;
    }
    return quoted + '"';
}

std::string Bytes(const std::string &data)
{
    std::string bytes = "hex:";
    for (const char byte : data) {
        constexpr const char *kDigits = "0123456789abcdef";
        const auto number = static_cast<unsigned char>(byte);
        bytes += {kDigits[number / 16], kDigits[number % 16], ','};
    }
    return bytes;
}

// Texts as such where their zero is at the end.
std::string Data(const std::string &data)
{
    const bool isText = data.find('\0') + 1 == data.size() && !data.empty();
    return isText ? Quoted(data.substr(0, data.size() - 1)) : Bytes(data);
}

std::string Written(const RegistryKeys &keys)
{
    std::string text;
    for (const auto &[key, values] : keys) {
        text += kRoot + key + "]\n";
        for (const auto &[name, data] : values) {
            text += (name.empty() ? "@" : Quoted(name)) + "=" + Data(data) + "\n";
        }
    }
    return text;
}

void CheckForm(const RegistryKeys &keys)
{
    for (const auto &[key, values] : keys) {
        Check(platform::ToLowerAscii(key) == key, "keys are in lower case");
        const std::size_t parent = key.rfind('\\');
        Check(parent == std::string::npos || keys.count(key.substr(0, parent)) == 1,
              "no key without the one above it");
        for (const auto &[name, data] : values) {
            Check(platform::ToLowerAscii(name) == name, "names are in lower case");
        }
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(Whole(data, size));
    const RegistryKeys keys = ParseRegistry(text);
    CheckForm(keys);
    const std::string written = Written(keys);
    Check(ParseRegistry(written) == keys, "what was read can be written and read again");
    RegistryKeys more = keys;
    more["zz"]["v"] = std::string("x\0", 2);
    Check(ParseRegistry(written + "[hkey_local_machine\\ZZ]\r\n\"V\" = \"x\" ; more\r\n") == more,
          "a later section adds to the earlier ones");
    return 0;
}
