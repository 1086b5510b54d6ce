#pragma once

#include "runtime/dates.h"
#include "runtime/errors.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// The program's title, which every box bears that passes no other.
inline constexpr char16_t kProgramTitle[] = u"Kestrelmoor";

/// Fields of OSVERSIONINFOA. All 0 when the call failed.
struct OsVersion {
    std::uint32_t platform_id = 0; ///< 2: NT, 1: 95, 98 and Me
    std::uint32_t major_version = 0;
    std::uint32_t minor_version = 0;
    std::uint32_t build_number = 0;
};
OsVersion GetVersionExA();

/// A named mutex, not owned, without security attributes. The handle is not handed out: it lives as long as
/// the process, and an existing mutex is no error.
void CreateMutexA(const char* sName);

/// The text of the arguments as one string, without the program's own name and the blanks and tabs behind it.
String CommandLineArguments();

/// The present local date and time.
Date Now();

/// Seconds since midnight, with a fraction.
double Timer();

/// Date and time as text in the user's default format.
String DateText(Date date);

/// Ends the session; the result is not looked at.
void ExitWindowsEx(std::uint32_t nFlags, std::uint32_t nReason);

/// The end of the process by an error that nobody trapped: shows its text in the platform's box and
/// does not return. No window is unloaded; the system takes back what is open.
[[noreturn]] void EndByError(const RuntimeError& error) noexcept;

} // namespace kestrelmoor::platform
