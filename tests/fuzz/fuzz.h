#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// The fuzz targets cover what the program reads from outside. A target that only must not crash
// says little about code that checks its bounds: it would miss a wrong character, a wrong cut, or a
// value under the wrong key. So each compares with a model: the same rule in its simplest form,
// reading back what was written, or a change of the input that must make no difference. The model
// shares no code with the program; when they differ, either can be wrong. If the program was, add
// the input to seeds/ and a unit test of the rule. `ctest --preset sanitize -R fuzz.offers` runs
// one target.

/// libFuzzer calls this for each input; always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Aborts unless `holds`, so that libFuzzer keeps the input.
inline void Check(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "Check failed: %s\n", what);
        std::abort();
    }
}

/// The input as text.
inline std::string_view Whole(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), size};
}

/// Splits the input at bytes 0xFF, which UTF-8 does not use. Missing fields are empty; the last one
/// has the rest.
template<std::size_t kCount>
std::array<std::string, kCount> Fields(const std::uint8_t *data, std::size_t size)
{
    std::array<std::string, kCount> fields;
    std::string_view rest = Whole(data, size);
    for (std::size_t index = 0; index + 1 < kCount; ++index) {
        const std::size_t end = rest.find('\xFF');
        fields.at(index) = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    fields.back() = rest;
    return fields;
}
