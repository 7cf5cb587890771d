#pragma once

#include <exception>
#include <optional>
#include <string>

namespace tos {

// Failure numbers the program can meet; each has a fixed description.
namespace err {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int BadFileName = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceIO = 57;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEnd = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int DuplicateKey = 457;
} // namespace err

// The description shown next to a failure number, "" for numbers outside the table.
std::string FailureDescription(int number);

// A failure travels as this exception to the trap of the routine that meets it.
class Failure : public std::exception {
public:
    explicit Failure(int number);
    int Number() const noexcept { return number_; }
    const std::string& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    std::string description_;
};

[[noreturn]] void Fail(int number);

// Runs body as a routine with a trap: a Failure (or memory exhaustion, as 7) is
// caught and returned; nothing else is.
template <class Body> std::optional<Failure> Trap(Body&& body)
{
    try {
        body();
    } catch (const Failure& f) {
        return f;
    } catch (const std::bad_alloc&) {
        return Failure(err::OutOfMemory);
    }
    return std::nullopt;
}

// The two trap message forms used throughout the program.
// "Unexpected error in NAME: DESCRIPTION ( N)"
std::string TrapMessageColon(const std::string& routine, const Failure& f);
// "Unexpected error in NAME \n\n N - DESCRIPTION"
std::string TrapMessageLines(const std::string& routine, const Failure& f);

} // namespace tos
