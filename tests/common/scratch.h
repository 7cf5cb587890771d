#pragma once

#include <filesystem>
#include <string>

namespace tos::test {

// A fresh folder under the system's temporary folder, removed with the object.
class ScratchDir {
public:
    ScratchDir();
    ~ScratchDir();
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    // Full path of name inside the folder.
    std::string File(const std::string& name) const;
    // Writes bytes exactly as given; returns the full path.
    std::string Write(const std::string& name, const std::string& bytes) const;

private:
    std::filesystem::path path_;
};

std::string ReadBytes(const std::string& path);

// Copies the example project Valley, its scene and project file, into the folder;
// returns the project file's path.
std::string CopyExampleProject(const ScratchDir& dir);

} // namespace tos::test
