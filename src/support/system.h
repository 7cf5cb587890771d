#pragma once

#include <cstdint>
#include <string>

namespace tos {

// What differs between the platforms apart from files: each platform has its own
// implementation file, which the build picks.

// The separator of paths the program builds: "\" on Windows, "/" elsewhere.
extern const char kPathSeparator;

// The path made full against the current directory, in the platform's own form;
// "" stays "". Only the text is worked on: the file need not exist.
std::string FullPath(const std::string& path);

// Folder the running executable was started from, without a trailing separator;
// the current directory when the system does not tell.
std::string ExecutableFolder();

// A monotonic clock in nanoseconds at a resolution of a few milliseconds, cheap
// enough to read on every profile lookup.
std::int64_t CoarseNowNs();

// Standard output and error pass bytes as they are: no CR is put before a LF.
void UseBinaryStandardStreams();

} // namespace tos
