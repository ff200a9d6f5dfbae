#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

/// What the recording library of the tests answers, and what it was asked. The library and the test
/// share it through its export "FixtureState".
struct FixtureState
{
    bool createFails = false;
    bool initResult = true;
    /// Texts and switches by key, "key|suffix" where there is a suffix.
    std::map<std::string, std::string> texts;
    std::map<std::string, bool> switches;
    /// What the sizing call of a key answers in place of its text's length.
    std::map<std::string, std::int32_t> lengths;
    /// Keys whose fetching call leaves the buffer alone.
    std::set<std::string> unfilled;
    /// Keys whose fetching call fills in the text without its zero.
    std::set<std::string> unterminated;
    /// Keys whose fetching call fills the whole buffer and leaves no zero.
    std::set<std::string> overfilled;

    std::vector<std::string> calls;
};
