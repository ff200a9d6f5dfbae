#pragma once

#include "tests/unit/platform/support/mailbox.h"

#include <string>

namespace contract {

/// Carries out one command of a test and gives the answer.
std::string Execute(const Lines &command);

/// Whether a command has asked to end, and with which exit code.
std::optional<int> RequestedExit();

/// To be called between commands: keeps the window of this process alive.
void Idle();

/// The program's arguments, the program's name first.
void SetArguments(Lines arguments);

} // namespace contract
