#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

namespace log_mode {
inline constexpr int kOff = 1;
inline constexpr int kFile = 2;
} // namespace log_mode

namespace log_event {
inline constexpr int kError = 1;
inline constexpr int kInformation = 4;
} // namespace log_event

/// Mode 2: opens the file `sTarget` for shared appending, creating it if needed; raises an error when it
/// can't be opened, and nothing is logged from then on. Mode 1: closes the log; later events end in nothing.
void StartLogging(const String& sTarget, int nMode);

/// Adds one line to the log, in UTF-8: the event's type and its text, whose line breaks become blanks.
/// Raises an error when the file can't be written. Does nothing while the log is off.
void LogEvent(StringView sText, int nType);

/// The events of a program that is diagnosing (`gLogging`), and nothing otherwise: a text and what follows
/// it, a call into the system ("-> NAME "ARGUMENT""), an error.
void LogInformation(StringView sText, StringView sValue = {});
void LogCall(StringView sName, StringView sArgument);
void LogError(StringView sText);

} // namespace kestrelmoor
