#pragma once

#include "platform/library.h"

#include <string>

/// The recording library of the tests, as the test itself has loaded it. Calls are recorded for as
/// long as the process runs; `NewCalls` gives those since it was asked last.
class Fixture
{
public:
    static std::string Path(const std::string &name = "telemetry_complete")
    {
        return std::string(FIXTURE_DIR) + "/" + name + ".DLL";
    }

    explicit Fixture(const std::string &name = "telemetry_complete")
        : library_(platform::LoadLibraryFile(Path(name).c_str()))
    {
        NewCalls();
    }

    bool Loaded() const
    {
        return library_ != nullptr;
    }

    std::string NewCalls()
    {
        const std::string all = Call<const char *()>("FixtureCalls")();
        const std::string added = all.substr(known_);
        known_ = all.size();
        return added;
    }

    int Overlaps()
    {
        return Call<int()>("FixtureOverlaps")();
    }
    void Hold(bool hold)
    {
        Call<void(bool)>("FixtureHold")(hold);
    }
    bool IsInside()
    {
        return Call<bool()>("FixtureIsInside")();
    }

private:
    template<typename Function> Function *Call(const char *name)
    {
        return reinterpret_cast<Function *>(platform::FindFunction(library_, name));
    }

    platform::LibraryHandle library_;
    std::size_t known_ = 0;
};
