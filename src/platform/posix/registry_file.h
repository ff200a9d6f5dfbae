#pragma once

#include <map>
#include <string>
#include <string_view>

namespace platform {

/// The part below HKEY_LOCAL_MACHINE of a registry in the export syntax of the Windows registry
/// editor. Names are in lower case, since their case does not count; data is what the registry
/// would hand out, text with its NUL.
using RegistryValues = std::map<std::string, std::string>;
using RegistryKeys = std::map<std::string, RegistryValues>;

/// `text` with the letters A to Z in lower case; all other bytes stay.
std::string ToLowerAscii(std::string_view text);

/// Reads an export: UTF-8, with or without byte order mark, any line ends, comments. A section
/// creates its parent keys, a later value replaces an earlier one. Deletions and what cannot be
/// parsed are ignored.
RegistryKeys ParseRegistry(std::string_view text);

} // namespace platform
