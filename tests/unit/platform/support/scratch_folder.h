#pragma once

#include <filesystem>
#include <string>

namespace contract {

/// A new, empty folder that goes with the object, content included.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;
    ScratchFolder(ScratchFolder &&) = delete;
    ScratchFolder &operator=(ScratchFolder &&) = delete;

    const std::filesystem::path &Path() const
    {
        return path_;
    }
    std::filesystem::path operator/(const std::filesystem::path &name) const
    {
        return path_ / name;
    }

private:
    std::filesystem::path path_;
};

/// A text that no other process and no other call has got.
std::string UniqueName(const std::string &beginning);

/// Creates or replaces the file.
void WriteFile(const std::filesystem::path &path, const std::string &content);
/// Content of the file; empty when there is none.
std::string ReadFile(const std::filesystem::path &path);

} // namespace contract
