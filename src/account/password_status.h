#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// What a status check found. The positive ones are bits and are joined with OR over all targets.
using PasswordStatus = std::int32_t;
inline constexpr PasswordStatus PasswordStatusNotBound = -1; ///< no directory object: ask the network API
inline constexpr PasswordStatus PasswordStatusOK = 0;        ///< nothing to report, or nothing learned
inline constexpr PasswordStatus PasswordStatusExpiring = 1;  ///< expires within the reminder time
inline constexpr PasswordStatus PasswordStatusExpired = 2;   ///< has expired or must be changed
inline constexpr PasswordStatus PasswordStatusInvalid = 4;   ///< the target refuses the user or the password

/// Bits of an account's flags.
namespace account_flag {
inline constexpr std::int32_t kCannotBeServed = 0x52; ///< disabled, locked, or not to change its password
inline constexpr std::int32_t kNeverExpires = 0x10000;
inline constexpr std::int32_t kPasswordExpired = 0x800000;
} // namespace account_flag

/// Numbers of the report lines whose one argument is the target's words.
namespace report_message {
inline constexpr std::int16_t kExpired = 3;
inline constexpr std::int16_t kInvalid = 19;
inline constexpr std::int16_t kRestricted = 21;
} // namespace report_message

/// Logs what was found: "Password status = Expired".
void LogPasswordStatus(StringView sState);

/// Whether an account is disabled, locked out or may not change its password, which is logged.
bool CannotBeServed(std::int32_t nFlags);

/// The words that name a target in a report line: "this computer" for the empty one.
String DescribeTarget(const String& sTarget);

/// Adds a line about a target to the report: message `nMessage` with the target's words.
void AddReportLine(String& sReport, std::int16_t nMessage, const String& sTarget);

/// Adds the line of an expired or an invalid password. False: the status is neither, and nothing is added.
bool AddRefusalLine(String& sReport, PasswordStatus nStatus, const String& sTarget);

/// Adds the line of a password that expires in so many seconds, told as days and hours, and logs them.
void AddExpiringLine(String& sReport, const String& sTarget, std::int32_t nSeconds);

} // namespace kestrelmoor
