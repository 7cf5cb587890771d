#include "support/failure.h"

#include <cerrno>
#include <sys/stat.h>

#include "support/conversions.h"

namespace tos {

std::string FailureDescription(int number)
{
    switch (number) {
    case err::InvalidCall: return "Invalid procedure call or argument";
    case err::Overflow: return "Overflow";
    case err::OutOfMemory: return "Out of memory";
    case err::DivisionByZero: return "Division by zero";
    case err::TypeMismatch: return "Type mismatch";
    case err::BadFileName: return "Bad file name or number";
    case err::FileNotFound: return "File not found";
    case err::FileAlreadyOpen: return "File already open";
    case err::DeviceIO: return "Device I/O error";
    case err::DiskFull: return "Disk full";
    case err::InputPastEnd: return "Input past end of file";
    case err::PermissionDenied: return "Permission denied";
    case err::PathFileAccess: return "Path/File access error";
    case err::PathNotFound: return "Path not found";
    case err::DuplicateKey: return "This key is already associated with an element of this collection";
    default: return "";
    }
}

Failure::Failure(int number) : number_(number), description_(FailureDescription(number)) {}

void Fail(int number)
{
    throw Failure(number);
}

int FileFailureNumber(int errnoValue, FileAccess access)
{
    switch (errnoValue) {
    case ENOENT: return access == FileAccess::Read ? err::FileNotFound : err::PathNotFound;
    case ENOTDIR: return err::PathNotFound;
    case ETXTBSY:
    case EBUSY: return err::PermissionDenied;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return err::DiskFull;
    case EIO: return err::DeviceIO;
    case ENAMETOOLONG:
    case EILSEQ:
    case EINVAL: return err::BadFileName;
    case ENOMEM: return err::OutOfMemory;
    default: return err::PathFileAccess; // read-only, a folder, no permission, any other
    }
}

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

std::string TrapMessageColon(const std::string& routine, const Failure& f)
{
    return "Unexpected error in " + routine + ": " + f.Description() + " (" +
           SignedIntegerText(f.Number()) + ")";
}

std::string TrapMessageLines(const std::string& routine, const Failure& f)
{
    return "Unexpected error in " + routine + " \n\n" + SignedIntegerText(f.Number()) + " - " +
           f.Description();
}

} // namespace tos
