#pragma once

#include <memory>
#include <string>

#include "support/checked.h"

namespace tos {

class Platform;

// Read access to profile files: one GetINIString per value. Files below 65,535
// bytes go to a reader that behaves like the platform's; larger ones to our own
// reader, which holds one file with an index of its sections.
class ProfileFiles {
public:
    explicit ProfileFiles(Platform& platform);
    ~ProfileFiles();
    ProfileFiles(const ProfileFiles&) = delete;
    ProfileFiles& operator=(const ProfileFiles&) = delete;

    // The value, or "" for anything missing. Never fails towards its caller; a
    // missing file shows its message at every read.
    std::string GetINIString(const std::string& section, const std::string& key,
                             const std::string& file);

    // Forgets what is held of the file, so the next read sees it on disk.
    void FlushProfileFile(const std::string& file);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace tos
