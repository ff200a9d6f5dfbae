#pragma once

#include "tests/acceptance/process.h"

#include <memory>

/// The product's folder with the fakes, in which the program runs.
class Sandbox
{
public:
    explicit Sandbox(std::filesystem::path folder);

    std::filesystem::path Program() const;
    /// The fakes write into it what the program does.
    std::filesystem::path Journal() const;

    /// Adds what the archive lacks: empty folders, files with paths of this machine, Qt.
    void Prepare(const std::filesystem::path &qt) const;

    /// Starts the program and waits up to a minute until it shows a window or ends.
    std::unique_ptr<Process> Start() const;

private:
    std::filesystem::path folder_;
};

/// The visible window of a process, or null.
HWND WindowOf(const Process &process);
