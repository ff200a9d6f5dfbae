#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

constexpr const char *kPassed = "passed";
constexpr const char *kFailed = "failed";
constexpr const char *kNotShown = "not shown";

/// One result. The texts are HTML.
struct Row
{
    std::string name;
    std::string state; ///< kPassed, kFailed or kNotShown
    std::string detail;
};

/// The results of one test program.
struct Group
{
    std::string name;
    std::vector<Row> rows;
    std::string xml; ///< as GoogleTest wrote it
};

/// A step of the person.
struct Step
{
    const char *title;
    const char *action;
    const char *expected;
    const char *image; ///< file name, or null
};

struct Report
{
    std::vector<Group> groups;
    std::vector<Row> steps;
    bool attended = false; ///< each step must pass, too
    std::string current;   ///< what happens now, as HTML; empty when all is done

    std::size_t Count(std::string_view state) const;
    bool Passed() const;
};

/// UTF-8 text as HTML.
std::string Escaped(std::string_view text);

/// The content of a file; empty if it cannot be read.
std::string ReadAll(const std::filesystem::path &file);

/// The results of a test program that ended with `status`.
Group ReadGroup(const std::string &name, std::string xml, int status, const std::string &output);

/// The description of a step, and what the fakes have written since it began.
std::string Description(std::size_t number, const Step &step, const std::string &journal);

/// Writes the report. Throws if the file cannot be written.
void Write(const Report &report,
           const std::filesystem::path &file,
           const std::filesystem::path &styleSheet);
