#include "tests/acceptance/report.h"

#include "tests/acceptance/machine.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

// The text between `begin` and the next `end`; empty if there is none.
std::string Between(const std::string &text, std::string_view begin, std::string_view end)
{
    std::size_t from = text.find(begin);
    if (from == std::string::npos) {
        return {};
    }
    from += begin.size();
    const std::size_t to = text.find(end, from);
    return to == std::string::npos ? std::string() : text.substr(from, to - from);
}

Row ResultOf(const std::string &test)
{
    const bool failed = test.find("<failure") != std::string::npos;
    const bool skipped = test.find("<skipped") != std::string::npos;
    // XML and HTML escape text alike.
    return {Between(test, " classname=\"", "\"") + '.' + Between(test, " name=\"", "\""),
            failed    ? kFailed
            : skipped ? kNotShown
                      : kPassed,
            Between(test, " message=\"", "\"")};
}

std::size_t CountRows(const std::vector<Row> &rows, std::string_view state)
{
    return static_cast<std::size_t>(std::count_if(
        rows.begin(), rows.end(), [state](const Row &row) { return row.state == state; }));
}

std::string Marked(const std::string &text, const std::string &state)
{
    return "<span class=\"" + state + "\">" + text + "</span>";
}

std::string Counted(std::size_t count, const std::string &state)
{
    return Marked(std::to_string(count) + ' ' + state, count == 0 ? "soft" : state);
}

std::string Line(const Row &row)
{
    return "<tr><td>" + Marked(row.state, row.state) + "</td><td>" + row.name +
           (row.detail.empty() ? "" : "<pre class=\"soft\">" + row.detail + "</pre>") +
           "</td></tr>\n";
}

std::string Fact(const std::string &name, const std::string &value)
{
    return "<tr><th>" + name + "</th><td>" + Escaped(value) + "</td></tr>\n";
}

std::string Heading(const Report &report)
{
    if (!report.current.empty()) {
        return "In progress";
    }
    if (report.Count(kFailed) != 0) {
        return Marked(kFailed, kFailed);
    }
    if (!report.Passed()) {
        return Marked("not complete", kNotShown);
    }
    return Marked(kPassed, kPassed) + (report.Count(kNotShown) == 0 ? "" : ", as far as shown");
}

std::string Facts(const Report &report)
{
    std::string facts;
    for (const auto &[name, value] : MachineFacts()) {
        facts += Fact(name, value);
    }
    for (const Group &group : report.groups) {
        const std::string times = Between(group.xml, "\"milliseconds\" value=\"", "\"");
        facts += times.empty() ? "" : Fact("Start-up", times + " ms to the window");
    }
    return facts;
}

std::string Results(const Group &group)
{
    const std::size_t failed = CountRows(group.rows, kFailed);
    std::string lines;
    for (const char *state : {kFailed, kNotShown, kPassed}) {
        for (const Row &row : group.rows) {
            lines += row.state == state ? Line(row) : std::string();
        }
    }
    return "<details" + std::string(failed == 0 ? "" : " open") + "><summary><b>" + group.name +
           "</b> " + Counted(CountRows(group.rows, kPassed), kPassed) + ' ' +
           Counted(failed, kFailed) + ' ' + Counted(CountRows(group.rows, kNotShown), kNotShown) +
           "</summary><table>\n" + lines + "</table></details>\n";
}

} // namespace

std::size_t Report::Count(std::string_view state) const
{
    std::size_t count = CountRows(steps, state);
    for (const Group &group : groups) {
        count += CountRows(group.rows, state);
    }
    return count;
}

bool Report::Passed() const
{
    return Count(kFailed) == 0 && (!attended || CountRows(steps, kPassed) == steps.size());
}

std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char letter : text) {
        escaped += letter == '<' ? "&lt;" : letter == '&' ? "&amp;" : std::string(1, letter);
    }
    return escaped;
}

std::string ReadAll(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Group ReadGroup(const std::string &name, std::string xml, int status, const std::string &output)
{
    Group group = {name, {}, std::move(xml)};
    const std::string element = "<testcase ";
    std::size_t at = group.xml.find(element);
    while (at != std::string::npos) {
        const std::size_t next = group.xml.find(element, at + 1);
        group.rows.push_back(ResultOf(group.xml.substr(at, next - at)));
        at = next;
    }
    if (group.rows.empty() || (status != 0 && CountRows(group.rows, kFailed) == 0)) {
        group.rows.push_back(
            {"The program itself",
             kFailed,
             "It ended with status " + std::to_string(status) + ".\n" + Escaped(output)});
    }
    return group;
}

std::string Description(std::size_t number, const Step &step, const std::string &journal)
{
    return "<h2>Step " + std::to_string(number) + ": " + step.title + "</h2><table>" +
           Fact("Do", step.action) + Fact("Expect", step.expected) +
           Fact("Then", "Answer in the console window.") + "</table>" +
           (step.image == nullptr
                ? ""
                : "<p><img src=\"files/images/" + std::string(step.image) + "\" alt=\"\"></p>") +
           (journal.empty() ? "" : "<h2>Journal</h2><pre>" + Escaped(journal) + "</pre>");
}

void Write(const Report &report, const fs::path &file, const fs::path &styleSheet)
{
    std::ofstream page(file, std::ios::binary);
    page << "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
         << "<title>UninstallUI on this machine</title>"
         << "<meta name=\"color-scheme\" content=\"light dark\">"
         << (report.current.empty() ? "" : "<meta http-equiv=\"refresh\" content=\"2\">")
         << "<style>\n"
         << ReadAll(styleSheet) << "</style></head><body><main>\n<section><h1>" << Heading(report)
         << "</h1><p class=\"soft\">UninstallUI " << KTR_VERSION
         << " on this machine</p><p class=\"counts\">" << Counted(report.Count(kPassed), kPassed)
         << Counted(report.Count(kFailed), kFailed) << Counted(report.Count(kNotShown), kNotShown)
         << "</p>"
         << (WineVersion().empty() ? ""
                                   : "<p>This run was under Wine. It does not replace a run on "
                                     "Windows.</p>")
         << "</section>\n";
    if (!report.current.empty()) {
        page << "<section class=\"now\">" << report.current << "</section>\n";
    }
    page << "<section><h2>This machine</h2><table>" << Facts(report)
         << "</table></section>\n<section><h2>Tests</h2>\n";
    for (const Group &group : report.groups) {
        page << Results(group);
    }
    page << "</section>\n<section><h2>Seen by a person</h2><table>\n";
    for (const Row &step : report.steps) {
        page << Line(step);
    }
    page << "</table></section>\n<section><h2>Results as XML</h2>\n";
    for (const Group &group : report.groups) {
        page << "<details><summary>" << group.name << ".xml</summary><pre>" << Escaped(group.xml)
             << "</pre></details>\n";
    }
    page << "</section></main></body></html>\n";
    page.close();
    if (!page) {
        throw std::runtime_error(file.u8string() + " cannot be written");
    }
}
