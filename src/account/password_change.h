#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// Changes the current user's password on one target through the network API, in one attempt. `sTarget`:
/// empty for the local computer, two backslashes and a name for a computer, anything else a domain. 0 on
/// success; -1 on failure, with the text for the user in `sError`.
std::int16_t ChangePassword(const String& sOldPass, const String& sNewPass, const String& sTarget,
                            String& sError);

/// Turns a privilege of this process on or off. 0 on success; -1 on failure, with the text in `sError`; a
/// privilege that the account doesn't hold is a failure.
std::int16_t SetPrivilege(const String& sPrivilege, bool bEnable, String& sError);

} // namespace kestrelmoor
