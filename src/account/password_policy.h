#pragma once

#include "account/password_status.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// The state of an account on a server (two backslashes and a name; empty: the local computer). The three
/// out values are 0 unless the answer tells more: age in seconds, status 0, 2 or 4, UF_ flags. 0 when the
/// answer could be classified, a refusal included; -1 on any other failure.
std::int16_t GetAccountInfo(const String& sUser, const String& sServer, std::int32_t& nPasswordAge,
                            PasswordStatus& nStatus, std::int32_t& nFlags);

/// The password policy of a server: greatest age in seconds, -1 for no limit, and minimum length. 0 on
/// success; -1 on failure, with the text in `sError` and the numbers untouched.
std::int16_t GetMaxPwdAgeAndMinLen(const String& sServer, std::int32_t& nMaxAge, std::int32_t& nMinLen,
                                   String& sError);

/// The minimum password length of a target, empty for the local computer; 0 when nothing could be learned.
std::int32_t GetMinPwdLength(const String& sTarget);

/// The state of the user's password on a target through the network API; adds a line to the report where
/// there is something to say. Never `PasswordStatusNotBound`.
PasswordStatus CheckPasswordStatus(String& sReport, const String& sTarget);

} // namespace kestrelmoor
