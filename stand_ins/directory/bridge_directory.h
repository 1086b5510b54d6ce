#pragma once

#include "directory_backend.h"

namespace kestrelmoor::stand_in {

/// Sends every call as one JSON line to the bridge that listens at `address` ("127.0.0.1:1234"):
///
///     {"call": "GetObject", "path": "WinNT://DC1/user,user"}
///     {"call": "IADsUser.Get", "path": ..., "name": "UserFlags"}              or "PasswordExpired"
///     {"call": "IADsUser.PasswordExpirationDate", "path": ...}
///     {"call": "IADsUser.PasswordMinimumLength", "path": ...}
///     {"call": "IADsUser.ChangePassword", "path": ..., "oldpassword": ..., "newpassword": ...}
///
/// The answer is {"code": 0}, for a read with a "value": null, a truth, a number or a text; the date is the
/// number of its days. A failure is a code of the system (1326) or a COM result (2147943726), and may have a
/// "description". A bridge that can't be reached answers 2138, one that talks nonsense 59; 87 where a text
/// can't be sent, for an unpaired surrogate in it.
std::unique_ptr<DirectoryBackend> MakeBridgeDirectory(const String& address);

} // namespace kestrelmoor::stand_in
