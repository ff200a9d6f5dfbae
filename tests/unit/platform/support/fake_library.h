#pragma once

#include "platform/library.h"
#include "testkit/fakes/fake.h"
#include "tests/unit/platform/support/system.h"

namespace contract {

/// A copy of a library fake that lies in a folder of its own below the test program, loaded into
/// this process. A loaded library cannot be removed on Windows, so the copies stay.
class FakeLibrary
{
public:
    /// `built` is the fake itself; its copy has no export `lacking`. Copies of different `name`
    /// are different libraries.
    explicit FakeLibrary(const std::filesystem::path &built,
                         const std::string &lacking = {},
                         const std::string &name = "complete")
        : path_(std::filesystem::path(ExecutablePath().string() + ".fakes") / (name + lacking) /
                built.filename())
    {
        std::error_code missing;
        if (last_write_time(path_, missing) < last_write_time(built) || missing) {
            std::string bytes = ReadFile(built);
            const std::string text = '\0' + lacking + '\0';
            for (auto at = bytes.find(text); text.size() > 2 && at != std::string::npos;
                 at = bytes.find(text, at)) {
                ++bytes[at + lacking.size()]; // keeps the order of the names, as Windows needs it
            }
            std::filesystem::create_directories(path_.parent_path());
            std::filesystem::remove(path_);
            WriteFile(path_.string() + ".txt", "companion=none\n");
            WriteFile(path_, bytes);
        }
        library_ = platform::LoadLibraryFile(path_.string().c_str());
        fake_ = Function<fake::Fake *()>("FakeOf")();
        Tell({});
    }

    platform::LibraryHandle Handle() const
    {
        return library_;
    }
    std::string Path() const
    {
        return path_.string();
    }
    template<typename Type> Type *Function(const char *name) const
    {
        return reinterpret_cast<Type *>(platform::FindFunction(library_, name));
    }
    /// Replaces the settings and forgets the notes.
    void Tell(fake::Settings settings)
    {
        fake_->Tell(std::move(settings));
        NewNotes();
    }
    std::vector<std::string> NewNotes()
    {
        return fake_->NewNotes();
    }

private:
    std::filesystem::path path_;
    platform::LibraryHandle library_ = nullptr;
    fake::Fake *fake_ = nullptr;
};

} // namespace contract
