#pragma once

#include "tests/unit/platform/support/system.h"

#include <filesystem>
#include <string>

/// The fake for the system's task list, as a copy that answers what a test wants.
class FakeTaskList
{
public:
    /// Makes the copy: a program called `name` in `folder`.
    FakeTaskList(const std::filesystem::path &folder, const std::string &name)
        : program_(folder / (name + contract::ProgramExtension()))
    {
        std::filesystem::copy_file(
            FAKE_TASKLIST, program_, std::filesystem::copy_options::overwrite_existing);
    }
    /// Removes it.
    ~FakeTaskList()
    {
        std::error_code ignored; // its folder may have gone before
        std::filesystem::remove(program_, ignored);
        std::filesystem::remove(SettingsFile(), ignored);
    }
    FakeTaskList(const FakeTaskList &) = delete;
    FakeTaskList &operator=(const FakeTaskList &) = delete;

    /// Tells it what to do from now on; testkit/fakes/tasklist.cpp says what there is.
    void Tell(const std::string &settings) const
    {
        contract::WriteFile(SettingsFile(), settings);
    }

    const std::filesystem::path &Program() const
    {
        return program_;
    }

private:
    std::filesystem::path SettingsFile() const
    {
        return program_.string() + ".txt";
    }

    std::filesystem::path program_;
};
