#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// No directory object could be bound; the network API is to be tried.
inline constexpr std::int32_t kNoDirectoryObject = -1;

/// The minimum password length of a target through the directory service. 0 with `nMinLen` set, -1 when no
/// object could be bound.
std::int16_t ADGetMinPwdLength(const String& sTarget, std::int32_t& nMinLen);

/// Changes the password on a target through the directory service. 0 on success; -1 when no object could be
/// bound; any other value is the number of the failure, and `sError` its text.
std::int32_t ADChangePassword(const String& sOldPass, const String& sNewPass, const String& sTarget,
                              String& sError);

} // namespace kestrelmoor
