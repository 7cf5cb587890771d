#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tos {

// Plain file access. Every failure is a Failure with the number a user would
// meet (53 missing file, 76 missing folder, 75 access, 61 disk full, ...).

bool FileExists(const std::string& path);

// Failure 52 for a name with a NUL byte: the system would take the shorter name in
// front of it, and read or write another file than the one named.
void RefuseNulInName(const std::string& path);

struct FileFacts {
    std::int64_t length = 0; // in bytes
    // Time of last change at the finest resolution the file system gives, with the
    // size, as text that changes whenever either changes.
    std::string stamp;
};

// Length and stamp from one look at the file; failure 53 for a missing file.
FileFacts GetFileFacts(const std::string& path);

// The whole file as bytes.
std::string ReadWholeFile(const std::string& path);

// Replaces the file with the rows, each followed by CR LF. A failure leaves what
// was written so far; the file is always closed.
void WriteLinesCrLf(const std::string& path, const std::vector<std::string>& rows);

// Replaces the file with the bytes so that it is either wholly old or wholly new:
// the bytes go to a new file in the same folder, which then takes the old one's
// place. On a failure the old file is left whole and the new one removed. A
// read-only file, a folder and a device are no file to replace (75).
void ReplaceFileAtomically(const std::string& path, std::string_view bytes);

// The rows, each followed by CR LF, as one text.
std::string CrLfText(const std::vector<std::string>& rows);

// The folder of an absolute path as the platform writes a current directory:
// no trailing separator except for the root.
std::string FolderOfPath(const std::string& path);

} // namespace tos
