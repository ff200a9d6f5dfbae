// The product's own user interface, which must not run while the product is removed. Settings:
//   hold_file=FILE    run as long as that file exists
//   run_ms=N          or for N milliseconds; with neither, until it is terminated
//   exit=0            exit code
// Journal: start (pid, args), end (pid, exit); no end line means that it was terminated.

#include "testkit/fakes/fake.h"
#include "testkit/os/os.h"

int main(int argc, char **argv)
{
    const auto arguments = os::Arguments(argc, argv);
    const fake::Fake self(os::ExecutablePath());
    const int code = static_cast<int>(self.Number("exit", 0));
    const auto pid = fake::Field("pid", os::OwnProcessId());
    self.Note("start", {pid, fake::ListField("args", arguments)});
    self.Hold(-1);
    self.Note("end", {pid, fake::Field("exit", code)});
    return code;
}
