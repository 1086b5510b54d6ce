#pragma once

#include "platform/security.h"
#include "runtime/text.h"

namespace kestrelmoor {

// Who the user is, what the computer is called and which domain the account comes from. `sError` is filled
// on failure alone, with the text for the user.

/// The name of the logged-on user, empty on failure.
String GetCurrentUser(String& sError);

/// Two backslashes and the computer's name, empty on failure.
String GetCompName(String& sError);

/// The name of the workstation's domain or workgroup, without a prefix, empty on failure.
String GetDomainName(String& sError);

/// Whether the computer has a primary domain and the logged-on account belongs to that very domain. False
/// also when that can't be learned.
bool IsDomainMember(String& sError);

/// The user's identifier in a buffer that lives as long as the program and is filled anew by each call; null
/// on failure.
platform::SidAddress GetCurrentUserSid();

/// The identifier of the account's domain: the user's without its last sub-authority. None on failure.
platform::OwnedSid GetAccountDomainSid(platform::SidAddress pSid);

} // namespace kestrelmoor
