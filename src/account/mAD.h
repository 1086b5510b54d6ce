#pragma once

#include "account/password_status.h"
#include "platform/directory_service.h"
#include "runtime/errors.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

// The directory service's way to a user's account. A target is empty for the local computer, two backslashes
// and a name for a computer, anything else a domain. Each operation binds anew. What an operation reads from
// the bound object is not trapped: a failure of it is raised.

/// No directory object could be bound; the network API is to be tried.
inline constexpr std::int16_t kNoDirectoryObject = -1;

/// The user's object on a target, none on failure. `nError`: the number of the failure, 0 for none;
/// `sError`: its text, written on failure alone.
platform::OwnedDirectoryObject ADInitUser(String sTarget, const String& sUser, std::int32_t& nError,
                                          String& sError);

/// The minimum password length of a target. 0 with `nMinLen` set, -1 when no object could be bound.
std::int16_t ADGetMinPwdLength(const String& sTarget, std::int32_t& nMinLen);

/// The state of the user's password on a target; adds a line to the report where there is something to say.
/// `PasswordStatusNotBound` when no object could be bound and the failure tells nothing of the password.
PasswordStatus ADCheckPasswordStatus(String& sReport, const String& sTarget);

/// Changes the password on a target. 0 on success; -1 when no object could be bound, with the text of the
/// failed bind in `sError`; any other value is the number of the failed call, and `sError` its text.
std::int32_t ADChangePassword(const String& sOldPass, const String& sNewPass, const String& sTarget,
                              String& sError);

/// The text for the user of a failed directory call.
String FormatADError(const RuntimeError& oErr, const String& sApiName);

} // namespace kestrelmoor
