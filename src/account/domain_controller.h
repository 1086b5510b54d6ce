#pragma once

#include "runtime/text.h"

namespace kestrelmoor {

/// The server that answers for a target that is not empty: a name with two leading backslashes as it stands,
/// with no look-up and `sError` untouched; any other through `GetPrimaryDCName`.
String ResolveServerName(const String& sTarget, String& sError);

/// The primary domain controller of a domain, short or dotted, with its two backslashes; empty if none was
/// found. `sError` is the text of the last failure and is not cleared by a success: read it only when the
/// result is empty.
String GetPrimaryDCName(const String& sDomain, String& sError);

} // namespace kestrelmoor
