#pragma once

#include "tests/unit/platform/support/system.h"

#include <filesystem>
#include <string>

/// A copy of the `tasklist` fake, a program called `name` in `folder`, that lives with the object.
class FakeTaskList
{
public:
    FakeTaskList(const std::filesystem::path &folder, const std::string &name)
        : program_(folder / (name + contract::ProgramExtension()))
    {
        std::filesystem::copy_file(
            FAKE_TASKLIST, program_, std::filesystem::copy_options::overwrite_existing);
        removal_ = contract::AtEnd([program = program_] {
            std::error_code ignored; // its folder may have gone before
            std::filesystem::remove(program, ignored);
            std::filesystem::remove(program.string() + ".txt", ignored);
        });
    }

    /// Replaces its settings, which testkit/fakes/tasklist.cpp lists.
    void Tell(const std::string &settings) const
    {
        contract::WriteFile(program_.string() + ".txt", settings);
    }

    const std::filesystem::path &Program() const
    {
        return program_;
    }

private:
    std::filesystem::path program_;
    contract::Held removal_;
};
