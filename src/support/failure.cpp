#include "support/failure.h"

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
