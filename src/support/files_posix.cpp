#include "support/files.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "support/crlf_rows.h"
#include "support/failure.h"

namespace tos {

namespace {

// What a file operation was doing when the system reported errno.
enum class FileAccess { Read, Write };

// The failure number a user sees for errno of a failed open, read or write.
int FileFailureNumber(int errnoValue, FileAccess access)
{
    switch (errnoValue) {
    case ENOENT:
        return access == FileAccess::Read ? err::FileNotFound : err::PathNotFound;
    case ENOTDIR:
        return err::PathNotFound;
    case ETXTBSY:
    case EBUSY:
        return err::PermissionDenied;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return err::DiskFull;
    case EIO:
        return err::DeviceIO;
    case ENAMETOOLONG:
    case EILSEQ:
    case EINVAL:
        return err::BadFileName;
    case ENOMEM:
        return err::OutOfMemory;
    default:
        return err::PathFileAccess; // read-only, a folder, no permission, any other
    }
}

// The same for a named file: reading a missing file is 53, but 76 when its folder is missing.
int FileFailureNumber(int errnoValue, FileAccess access, const std::string& path)
{
    if (access == FileAccess::Read && errnoValue == ENOENT) {
        const std::size_t last = path.find_last_of('/');
        const std::string folder = last == std::string::npos ? "." : path.substr(0, last + 1);
        struct stat st {};
        if (::stat(folder.c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
            return err::PathNotFound;
    }
    return FileFailureNumber(errnoValue, access);
}

// Closes the descriptor however the routine ends.
class FileHandle {
public:
    explicit FileHandle(int fd) : fd_(fd) {}
    ~FileHandle()
    {
        if (fd_ >= 0)
            ::close(fd_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    int get() const { return fd_; }
    // Closes now; false when the system reports that the data did not get out.
    bool Close()
    {
        const int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0 || errno == EINTR;
    }

private:
    int fd_;
};

bool WriteAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// A folder or a missing path is no file to measure: 53.
struct stat StatOfFile(const std::string& path)
{
    RefuseNulInName(path);
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) {
        const int e = errno;
        Fail(e == ENOENT || e == ENOTDIR ? err::FileNotFound
                                         : FileFailureNumber(e, FileAccess::Read));
    }
    if (S_ISDIR(st.st_mode))
        Fail(err::FileNotFound);
    return st;
}

// Modification time to the nanosecond and the size: any change of either shows.
std::string StampText(const struct stat& st)
{
    return std::to_string(static_cast<long long>(st.st_mtim.tv_sec)) + "." +
           std::to_string(static_cast<long long>(st.st_mtim.tv_nsec)) + " " +
           std::to_string(static_cast<long long>(st.st_size));
}

// Fails 75 when the folder of path has no write permission bit.
void RefuseClosedFolder(const std::string& path)
{
    const std::string folder = FolderOfPath(path);
    struct stat fs {};
    if (!folder.empty() && ::stat(folder.c_str(), &fs) == 0 && S_ISDIR(fs.st_mode) &&
        (fs.st_mode & 0222) == 0)
        Fail(err::PathFileAccess);
}

// Fails 75 for a target that is a folder, a device or a pipe, or read-only, and for a
// new file in a folder without any write permission bit (the super-user may write
// anywhere, so the writer keeps to what the bits say).
void RefuseUnwritable(const std::string& path)
{
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0) {
        if (!S_ISREG(st.st_mode) || (st.st_mode & 0222) == 0)
            Fail(err::PathFileAccess);
        return;
    }
    if (errno != ENOENT)
        Fail(FileFailureNumber(errno, FileAccess::Write));
    RefuseClosedFolder(path);
}

} // namespace

bool FileExists(const std::string& path)
{
    struct stat st {};
    return path.find('\0') == std::string::npos && ::stat(path.c_str(), &st) == 0 &&
           !S_ISDIR(st.st_mode);
}

FileFacts GetFileFacts(const std::string& path)
{
    const struct stat st = StatOfFile(path);
    return {static_cast<std::int64_t>(st.st_size), StampText(st)};
}

std::string ReadWholeFile(const std::string& path)
{
    RefuseNulInName(path);
    // Without O_NONBLOCK a pipe would wait for a writer for ever.
    FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.get() < 0)
        Fail(FileFailureNumber(errno, FileAccess::Read, path));
    struct stat st {};
    if (::fstat(file.get(), &st) != 0)
        Fail(FileFailureNumber(errno, FileAccess::Read));
    // A folder, a pipe or a device (one that never ends, like /dev/zero) is no text file.
    if (!S_ISREG(st.st_mode))
        Fail(err::PathFileAccess);
    std::string bytes;
    // One byte spare, so the read that meets the end needs no larger buffer.
    bytes.resize(static_cast<std::size_t>(st.st_size) + 1);
    std::size_t have = 0;
    for (;;) {
        if (have == bytes.size())
            bytes.resize(bytes.size() + 65536);
        const ssize_t n = ::read(file.get(), bytes.data() + have, bytes.size() - have);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            Fail(FileFailureNumber(errno, FileAccess::Read));
        }
        if (n == 0)
            break;
        have += static_cast<std::size_t>(n);
    }
    bytes.resize(have);
    return bytes;
}

void WriteLinesCrLf(const std::string& path, const std::vector<std::string>& rows)
{
    RefuseNulInName(path);
    // Everyone may write as the super-user, so a file without any write permission bit
    // counts as read-only and is left as it is; so does a folder for a new file in it.
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0) {
        if (S_ISDIR(st.st_mode) || (st.st_mode & 0222) == 0)
            Fail(err::PathFileAccess);
    } else if (errno == ENOENT) {
        RefuseUnwritable(path);
    }

    // Without O_NONBLOCK a pipe would wait for a reader for ever; files are not affected.
    FileHandle file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666));
    if (file.get() < 0)
        Fail(FileFailureNumber(errno, FileAccess::Write));

    const auto write = [&](std::string_view bytes) { return WriteAll(file.get(), bytes); };
    if (!WriteRowsCrLf(rows, write) || !file.Close())
        Fail(FileFailureNumber(errno, FileAccess::Write));
}

void ReplaceFileAtomically(const std::string& named, std::string_view bytes)
{
    RefuseNulInName(named);
    // A link keeps pointing at the file it names: the file is replaced, not the link.
    char resolved[PATH_MAX];
    const std::string path = ::realpath(named.c_str(), resolved) ? resolved : named;
    RefuseUnwritable(path);
    // The new file is made in the same folder, so that folder must take it.
    RefuseClosedFolder(path);

    struct stat old {};
    const bool existed = ::stat(path.c_str(), &old) == 0;
    std::string temp = path + ".XXXXXX";
    FileHandle file(::mkstemp(temp.data()));
    if (file.get() < 0)
        Fail(FileFailureNumber(errno, FileAccess::Write));
    const auto fail = [&](int number) {
        ::unlink(temp.c_str());
        Fail(number);
    };
    // The new file gets the old one's permissions, or those a plain new file would get.
    mode_t mode = 0;
    if (existed) {
        mode = old.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    if (::fchmod(file.get(), mode) != 0 || !WriteAll(file.get(), bytes) ||
        ::fsync(file.get()) != 0 || !file.Close())
        fail(FileFailureNumber(errno, FileAccess::Write));
    if (::rename(temp.c_str(), path.c_str()) != 0)
        fail(FileFailureNumber(errno, FileAccess::Write));
}

} // namespace tos
