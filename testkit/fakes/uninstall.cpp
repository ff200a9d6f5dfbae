// The product's uninstaller. Settings:
//   env=NAME,NAME     environment variables to note at the start
//   run_ms=3000       how long it takes; hold_file=FILE instead: as long as that file exists
//   remove=FILE       a product file to remove, below the own folder (repeatable); a folder goes
//                     when it is empty
//   linger_while=FILE, linger_until=FILE   go on running after the removal
//   exit=0            exit code
//   mode=never        end at once; with `hide` of the task list it is never seen running
// Journal: start (pid, args, cwd, fds, env.NAME=unset|empty|set:VALUE), or never (pid, args);
// remove (file, result=gone|missing|refused|failed); end (pid, exit).

#include "testkit/fakes/fake.h"
#include "testkit/os/os.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> StartFields(const fake::Fake &self,
                                     const std::vector<std::string> &arguments,
                                     const std::vector<std::string> &descriptors)
{
    std::error_code ignored;
    std::vector<std::string> fields = {fake::Field("pid", os::OwnProcessId()),
                                       fake::ListField("args", arguments),
                                       fake::PathField("cwd", fs::current_path(ignored)),
                                       fake::ListField("fds", descriptors)};
    std::istringstream names(self.Text("env"));
    for (std::string name; std::getline(names, name, ',');) {
        const auto value = os::EnvironmentVariable(name);
        const std::string shown =
            !value ? "unset" : (value->empty() ? std::string("empty") : "set:" + *value);
        fields.push_back(fake::Field("env." + name, shown));
    }
    return fields;
}

// Whether `file` lies inside `folder`: neither its name nor a link in its path leads out.
bool StaysInside(const fs::path &folder, const fs::path &file)
{
    if (file.empty() || file.is_absolute() || file.has_root_path()) {
        return false;
    }
    std::error_code error;
    const fs::path home = fs::canonical(folder, error);
    const fs::path parent = fs::weakly_canonical((folder / file).parent_path(), error);
    const auto isUp = [](const fs::path &part) {
        return part == ".." || part == ".";
    };
    return !error && std::none_of(file.begin(), file.end(), isUp) && file.has_filename() &&
           std::mismatch(home.begin(), home.end(), parent.begin(), parent.end()).first ==
               home.end();
}

std::string Remove(const fs::path &folder, const fs::path &file)
{
    if (!StaysInside(folder, file)) {
        return "refused";
    }
    std::error_code error;
    const bool removed = fs::remove(folder / file, error);
    return error ? "failed" : (removed ? "gone" : "missing");
}

bool Exists(const fs::path &file)
{
    std::error_code ignored;
    return fs::exists(file, ignored);
}

void Linger(const fake::Fake &self)
{
    const fs::path present = self.Path("linger_while");
    if (!present.empty()) {
        self.WaitWhile([&present] { return Exists(present); });
    }
    const fs::path absent = self.Path("linger_until");
    if (!absent.empty()) {
        self.WaitWhile([&absent] { return !Exists(absent); });
    }
}

} // namespace

int main(int argc, char **argv)
{
    const auto descriptors = os::OpenDescriptors();
    const auto arguments = os::Arguments(argc, argv);
    const fake::Fake self(os::ExecutablePath());
    const int code = static_cast<int>(self.Number("exit", 0));
    if (self.Text("mode") == "never") {
        self.Note("never",
                  {fake::Field("pid", os::OwnProcessId()), fake::ListField("args", arguments)});
        return code;
    }
    os::OutliveParent();
    self.Note("start", StartFields(self, arguments, descriptors));
    self.Hold(3000);
    for (const std::string &file : self.All("remove")) {
        const std::string result = Remove(self.Folder(), fs::u8path(file));
        self.Note("remove", {fake::Field("file", file), fake::Field("result", result)});
    }
    Linger(self);
    self.Note("end", {fake::Field("pid", os::OwnProcessId()), fake::Field("exit", code)});
    return code;
}
