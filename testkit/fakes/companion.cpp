// The companion process of the telemetry library, one for each program folder. It ends by itself
// when the last process that loaded the library from its folder is gone. Settings:
//   hold_file=FILE    when that file exists: run as long as it does, whatever the library and other
//                     companions do
// Journal: start (pid, args), end (pid); no end line means that it was terminated. A second
// companion in the same folder ends without an entry.

#include "testkit/fakes/fake.h"
#include "testkit/os/file_lock.h"
#include "testkit/os/os.h"

#include <filesystem>
#include <memory>
#include <system_error>

using os::FileLock;

int main(int argc, char **argv)
{
    const auto arguments = os::Arguments(argc, argv);
    const fake::Fake self(os::ExecutablePath());
    const auto pid = fake::Field("pid", os::OwnProcessId());

    const std::filesystem::path hold = self.Path("hold_file");
    std::error_code ignored;
    if (!hold.empty() && std::filesystem::exists(hold, ignored)) {
        self.Note("start", {pid, fake::ListField("args", arguments)});
        self.Hold(0);
        self.Note("end", {pid});
        return 0;
    }
    auto only = std::make_unique<FileLock>(self.StateFile("companion.lock"));
    if (!only->TryTake(FileLock::Mode::Exclusive)) {
        return 0;
    }
    self.Note("start", {pid, fake::ListField("args", arguments)});
    FileLock loaders(self.StateFile("loaders.lock"));
    loaders.Take(FileLock::Mode::Exclusive);
    // A library that is loading waits for the loaders' lock. When it gets it, the companion's lock
    // must be free, so release that first.
    only.reset();
    self.Note("end", {pid});
    return 0;
}
