#include <windows.h>

#include <string>
#include <string_view>

#include "support/crlf_rows.h"
#include "support/failure.h"
#include "support/files.h"

namespace tos {

namespace {

enum class FileAccess { Read, Write };

// The failure number a user sees for a system error of a failed open, read or write.
int FileFailureNumber(DWORD error, FileAccess access)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return access == FileAccess::Read ? err::FileNotFound : err::PathNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
        return err::PathNotFound;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return err::PermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return err::DiskFull;
    case ERROR_CRC:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
        return err::DeviceIO;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
        return err::BadFileName;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return err::OutOfMemory;
    default:
        return err::PathFileAccess; // read-only, a folder, no access, any other
    }
}

[[noreturn]] void FailWithLastError(FileAccess access)
{
    Fail(FileFailureNumber(GetLastError(), access));
}

// Closes the handle however the routine ends.
class FileHandle {
public:
    explicit FileHandle(HANDLE h) : h_(h) {}
    ~FileHandle()
    {
        if (h_ != INVALID_HANDLE_VALUE)
            CloseHandle(h_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    HANDLE get() const { return h_; }
    // Closes now; false when the system reports that the data did not get out.
    bool Close()
    {
        const HANDLE h = h_;
        h_ = INVALID_HANDLE_VALUE;
        return CloseHandle(h) != 0;
    }

private:
    HANDLE h_;
};

bool WriteAll(HANDLE h, std::string_view bytes)
{
    while (!bytes.empty()) {
        const DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 24));
        DWORD written = 0;
        if (!WriteFile(h, bytes.data(), chunk, &written, nullptr))
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

} // namespace

bool FileExists(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        return false;
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

FileFacts GetFileFacts(const std::string& path)
{
    RefuseNulInName(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data)) {
        const DWORD e = GetLastError();
        Fail(e == ERROR_FILE_NOT_FOUND || e == ERROR_PATH_NOT_FOUND
                 ? err::FileNotFound
                 : FileFailureNumber(e, FileAccess::Read));
    }
    // A folder is no file to measure.
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        Fail(err::FileNotFound);
    const auto length = static_cast<std::int64_t>(
        (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow);
    const auto written = (static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
                         data.ftLastWriteTime.dwLowDateTime;
    // Time of last change in 100 ns steps and the size: any change of either shows.
    return {length, std::to_string(written) + " " + std::to_string(length)};
}

std::string ReadWholeFile(const std::string& path)
{
    RefuseNulInName(path);
    FileHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.get() == INVALID_HANDLE_VALUE)
        FailWithLastError(FileAccess::Read);
    // A pipe or a device (CON, NUL) is no text file and may never end.
    if (GetFileType(file.get()) != FILE_TYPE_DISK)
        Fail(err::PathFileAccess);
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size))
        FailWithLastError(FileAccess::Read);
    std::string bytes;
    // One byte spare, so the read that meets the end needs no larger buffer.
    bytes.resize(static_cast<std::size_t>(size.QuadPart) + 1);
    std::size_t have = 0;
    for (;;) {
        if (have == bytes.size())
            bytes.resize(bytes.size() + 65536);
        const DWORD want = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - have, 1 << 24));
        DWORD got = 0;
        if (!ReadFile(file.get(), bytes.data() + have, want, &got, nullptr))
            FailWithLastError(FileAccess::Read);
        if (got == 0)
            break;
        have += got;
    }
    bytes.resize(have);
    return bytes;
}

void WriteLinesCrLf(const std::string& path, const std::vector<std::string>& rows)
{
    RefuseNulInName(path);
    // A read-only file and a folder are left as they are.
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)))
        Fail(err::PathFileAccess);

    FileHandle file(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.get() == INVALID_HANDLE_VALUE)
        FailWithLastError(FileAccess::Write);

    const auto write = [&](std::string_view bytes) { return WriteAll(file.get(), bytes); };
    if (!WriteRowsCrLf(rows, write) || !file.Close())
        FailWithLastError(FileAccess::Write);
}

void ReplaceFileAtomically(const std::string& path, std::string_view bytes)
{
    RefuseNulInName(path);
    // A read-only file, a folder and a device are left as they are.
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DEVICE)))
        Fail(err::PathFileAccess);

    const std::string temp = path + "." + std::to_string(GetCurrentProcessId()) + ".tmp";
    {
        FileHandle file(CreateFileA(temp.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file.get() == INVALID_HANDLE_VALUE)
            FailWithLastError(FileAccess::Write);
        if (!WriteAll(file.get(), bytes) || !FlushFileBuffers(file.get()) || !file.Close()) {
            const DWORD error = GetLastError();
            DeleteFileA(temp.c_str());
            Fail(FileFailureNumber(error, FileAccess::Write));
        }
    }
    if (!MoveFileExA(temp.c_str(), path.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const DWORD error = GetLastError();
        DeleteFileA(temp.c_str());
        Fail(FileFailureNumber(error, FileAccess::Write));
    }
}

} // namespace tos
