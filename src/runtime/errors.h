#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <exception>

namespace kestrelmoor {

/// Numbers of the run-time's own errors.
namespace error_number {
inline constexpr std::int32_t kInvalidArgument = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscript = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidNull = 94;
inline constexpr std::int32_t kInvalidPropertyValue = 380;
inline constexpr std::int32_t kInvalidPropertyIndex = 381;
inline constexpr std::int32_t kNoSuchMember = 438;
inline constexpr std::int32_t kEntryNotFound = 453;
} // namespace error_number

/// The one exception of the program: raised only where an operation is told to raise, caught only where
/// one is told to trap. One that nobody traps ends the process with a box that shows it.
class RuntimeError : public std::exception {
  public:
    RuntimeError(std::int32_t number, String source, String description);

    std::int32_t number() const { return mNumber; }
    const String& source() const { return mSource; }
    const String& description() const { return mDescription; }

    /// "Run-time error 5: Invalid argument." in UTF-8, for debuggers and test runners.
    const char* what() const noexcept override { return mWhat.c_str(); }

  private:
    std::int32_t mNumber;
    String mSource;
    String mDescription;
    std::string mWhat;
};

/// Raises one of the run-time's own errors with its English description; the source is the program's name.
[[noreturn]] void RaiseError(std::int32_t number);

/// The English description of one of the run-time's own errors, a general sentence for any other number.
String ErrorDescription(std::int32_t number);

/// Turns a failed COM result into the number of a run-time error: a denied access (0x80070005) becomes 70,
/// memory (0x8007000E) 7, an invalid argument (0x80070057) 5; any other result stays the number it is. A
/// raised exception's own code is given by the caller in place of the result.
std::int32_t ErrorNumberOfComResult(std::int32_t result);

/// Raises the error of a failed COM result; a result of 0 or above raises nothing.
void RaiseIfFailed(std::int32_t result);

/// The number that a failed call into the system has when it is raised: the system's code plus 0x80070000.
std::int32_t ErrorNumberOfSystemCode(std::uint32_t code);

} // namespace kestrelmoor
