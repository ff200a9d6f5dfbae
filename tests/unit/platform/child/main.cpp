#include "tests/unit/platform/child/commands.h"
#include "tests/unit/platform/support/system.h"

#include <cstdlib>

// Does what a test asks for, one command after the other, until it is told to end or the test goes.
int main(int argc, char **argv)
{
    constexpr int kAbandoned = 99;
    const char *const folder = std::getenv(contract::kMailboxVariable);
    if (folder == nullptr) {
        return kAbandoned;
    }
    contract::SetArguments({argv, argv + argc});
    contract::Mailbox mailbox(folder);
    const auto done = [&mailbox] {
        contract::Idle();
        if (const auto command = mailbox.NextCommand()) {
            mailbox.Answer(contract::Execute(*command));
        }
        return contract::RequestedExit().has_value() || mailbox.Abandoned();
    };
    contract::WaitUntil(done, 3 * contract::kDeadline);
    return contract::RequestedExit().value_or(kAbandoned);
}
