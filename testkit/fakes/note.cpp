// Writes one line for a script: note IMAGE EVENT [key=value]... [-- argument...]
// The line has pid and cwd of this process, the given keys, and args=[argument][argument]. The file
// `IMAGE.txt` beside this program may set run_ms, hold_file and exit.

#include "testkit/fakes/fake.h"
#include "testkit/os/os.h"

#include <algorithm>
#include <cstdio>

int main(int argc, char **argv)
{
    const auto words = os::Arguments(argc, argv);
    if (words.size() < 2) {
        std::fputs("usage: note IMAGE EVENT [key=value]... [-- argument...]\n", stderr);
        return 2;
    }
    const auto program = os::ExecutablePath();
    const fake::Fake script(program.parent_path() / std::filesystem::u8path(words[0]));

    std::error_code ignored;
    std::vector<std::string> fields = {
        fake::Field("pid", os::OwnProcessId()),
        fake::PathField("cwd", std::filesystem::current_path(ignored))};
    const auto separator = std::find(words.begin() + 2, words.end(), "--");
    for (auto word = words.begin() + 2; word != separator; ++word) {
        fields.push_back(fake::Escape(*word));
    }
    if (separator != words.end()) {
        fields.push_back(fake::ListField("args", {separator + 1, words.end()}));
    }
    script.Note(words[1], fields);
    script.Hold(0);
    return static_cast<int>(script.Number("exit", 0));
}
