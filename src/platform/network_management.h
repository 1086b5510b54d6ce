#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <optional>

namespace kestrelmoor::platform {

/// Network management. Every call answers 0 for success or a code of the system (5 access denied, 86 wrong
/// password, 2100 to 2999 the network's own). The out record is written on success alone; the platform's
/// buffer has been copied and released when the call returns. A library that cannot be bound raises 53, a
/// missing entry 453, except where a call says otherwise.
using NetStatus = std::uint32_t;

struct WkstaUserInfo0 {
    String username;
};

struct WkstaInfo100 {
    String computername; ///< without leading backslashes
    String langroup;     ///< domain or workgroup
};

struct UserInfo3 {
    std::uint32_t password_age = 0; ///< seconds since the last change
    std::uint32_t flags = 0;        ///< UF_ bits
    std::uint32_t password_expired = 0;
};

struct UserModalsInfo0 {
    std::uint32_t min_passwd_len = 0; ///< characters
    std::uint32_t max_passwd_age = 0; ///< seconds, 0xFFFFFFFF: never
};

/// The logged-on user, as the local workstation has it (level 0).
NetStatus NetWkstaUserGetInfo(WkstaUserInfo0& info);

/// The local workstation (level 100).
NetStatus NetWkstaGetInfo(WkstaInfo100& info);

/// The primary domain controller of a domain by its short name, asked of the local computer; `sName` has
/// its two leading backslashes.
NetStatus NetGetDCName(const String& sDomain, String& sName);

/// A domain controller by short or dotted name, with the DS_ flags as given; `sName` has its two leading
/// backslashes. No value: the platform's library has no such entry and no call was made.
std::optional<NetStatus> DsGetDcNameW(const String& sDomain, std::uint32_t nFlags, String& sName);

/// Changes the password of the caller's own account on `sServer` (two backslashes and a name). Both
/// passwords reach the platform as valid texts, an empty one too.
NetStatus NetUserChangePassword(const String& sServer, const String& sOldPass, const String& sNewPass);

/// An account (level 3) on `sServer`; empty: the local computer.
NetStatus NetUserGetInfo(const String& sServer, const String& sUser, UserInfo3& info);

/// The password policy (level 0) of `sServer`; empty: the local computer.
NetStatus NetUserModalsGet(const String& sServer, UserModalsInfo0& info);

} // namespace kestrelmoor::platform
