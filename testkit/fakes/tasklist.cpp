// The system command "tasklist", limited to CSV output and a filter for one image name. Settings:
//   root=FOLDER       list only processes whose executable lies below (repeatable); none: all
//   hide=NAME         claim that this image does not run (repeatable)
//   show=NAME         claim that this image runs (repeatable)
//   bytes=N           print N bytes of other text first
//   say=TEXT          print this line, %XX means any byte (repeatable)
//   silent=1          print no list
//   complain=TEXT     print this line on standard error (repeatable)
//   hang=1            do not end after printing
//   killed=1          end after printing as if terminated by another process
//   exit=0            exit code
//   note=1            write a line for each query
// Journal, with note=1: query (args, found=pids).

#include "testkit/fakes/fake.h"
#include "testkit/os/os.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

constexpr std::string_view kImageFilter = "IMAGENAME eq ";
constexpr std::uint32_t kShownProcessId = 4242;

std::string ToLowerAscii(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

struct Query
{
    bool header = true;
    bool csv = false;
    std::optional<std::string> image;
};

// No value if the arguments are not supported.
std::optional<Query> Parse(const std::vector<std::string> &arguments)
{
    Query query;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string option = ToLowerAscii(arguments[index]);
        const bool hasValue = index + 1 < arguments.size();
        if (option == "/nh") {
            query.header = false;
        } else if (option == "/fo" && hasValue) {
            query.csv = ToLowerAscii(arguments[++index]) == "csv";
        } else if (option == "/fi" && hasValue) {
            const std::string &filter = arguments[++index];
            if (ToLowerAscii(filter.substr(0, kImageFilter.size())) != ToLowerAscii(kImageFilter)) {
                return std::nullopt;
            }
            query.image = filter.substr(kImageFilter.size());
        } else {
            return std::nullopt;
        }
    }
    return query.csv ? std::optional<Query>(query) : std::nullopt;
}

std::string ImageName(const std::string &path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

bool Names(const std::vector<std::string> &list, std::string_view image)
{
    const std::string wanted = ToLowerAscii(image);
    return std::any_of(list.begin(), list.end(), [&wanted](const std::string &name) {
        return ToLowerAscii(name) == wanted;
    });
}

std::vector<os::RunningProcess> Listed(const fake::Fake &self, const Query &query)
{
    const std::string wanted = ToLowerAscii(query.image.value_or(""));
    const auto roots = self.All("root");
    const auto hidden = self.All("hide");
    std::vector<os::RunningProcess> listed;
    for (const auto &process : os::RunningProcesses(wanted)) {
        const std::string image = ImageName(process.path);
        const auto above = [&process](const std::string &root) {
            return os::IsBelow(process.path, root);
        };
        if ((wanted.empty() || ToLowerAscii(image) == wanted) && !Names(hidden, image) &&
            (roots.empty() || std::any_of(roots.begin(), roots.end(), above))) {
            listed.push_back(process);
        }
    }
    for (const std::string &name : self.All("show")) {
        if (wanted.empty() || ToLowerAscii(name) == wanted) {
            listed.push_back({kShownProcessId, name, 4212});
        }
    }
    return listed;
}

std::string Line(const os::RunningProcess &process)
{
    std::string memory = std::to_string(process.memoryKb);
    for (std::size_t digits = 3; digits < memory.size(); digits += 4) {
        memory.insert(memory.size() - digits, ",");
    }
    return '"' + ImageName(process.path) + "\",\"" + std::to_string(process.id) +
           R"(","Console","1",")" + memory + " K\"\r\n";
}

std::string Answer(const Query &query, const std::vector<os::RunningProcess> &listed)
{
    if (listed.empty()) {
        return "INFO: No tasks are running which match the specified criteria.\r\n";
    }
    std::string text;
    if (query.header) {
        text = "\"Image Name\",\"PID\",\"Session Name\",\"Session#\",\"Mem Usage\"\r\n";
    }
    for (const auto &process : listed) {
        text += Line(process);
    }
    return text;
}

void Print(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void PrintPadding(long bytes)
{
    const std::string line = std::string(62, '.') + "\r\n";
    for (auto left = static_cast<std::size_t>(std::max(bytes, 0L)); left > 0;) {
        const std::size_t length = std::min(left, line.size());
        Print(std::string_view(line).substr(line.size() - length));
        left -= length;
    }
}

void NoteQuery(const fake::Fake &self,
               const std::vector<std::string> &arguments,
               const std::vector<os::RunningProcess> &listed)
{
    std::vector<std::string> pids;
    pids.reserve(listed.size());
    for (const auto &process : listed) {
        pids.push_back(std::to_string(process.id));
    }
    self.Note("query", {fake::ListField("args", arguments), fake::ListField("found", pids)});
}

} // namespace

int main(int argc, char **argv)
{
    const auto arguments = os::Arguments(argc, argv);
    const fake::Fake self(os::ExecutablePath());
    const auto query = Parse(arguments);
    if (!query) {
        std::fputs("ERROR: Invalid argument/option.\r\n", stderr);
        return 1;
    }
    const auto listed = Listed(self, *query);
    if (self.Number("note", 0) != 0) {
        NoteQuery(self, arguments, listed);
    }
    os::BinaryOutput();
    PrintPadding(self.Number("bytes", 0));
    for (const std::string &text : self.All("say")) {
        Print(fake::Unescape(text) + "\r\n");
    }
    if (self.Number("silent", 0) == 0) {
        Print(Answer(*query, listed));
    }
    std::fflush(stdout);
    for (const std::string &text : self.All("complain")) {
        std::fputs((text + "\n").c_str(), stderr);
    }
    std::fflush(stderr);
    if (self.Number("killed", 0) != 0) {
        os::EndByForce();
    }
    if (self.Number("hang", 0) != 0) {
        self.WaitWhile([] { return true; });
    }
    return static_cast<int>(self.Number("exit", 0));
}
