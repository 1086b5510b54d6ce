#pragma once

#include "localization/ILocalization.h"
#include "platform/modules.h"

namespace kestrelmoor {

/// The class factory of a library file that is registered nowhere. `hModule` is in and out: 0 means load
/// `sPath`, and the handle comes back there, also when a later step fails; any other handle is used as it is
/// and `sPath` is not looked at. Raises the system's last error plus 0x80070000 for a file that can't be
/// loaded or lacks the export, and the export's own failure.
OwnedClassFactory GetClassObjectFromDll(const String& sPath, const abi::Guid& clsid,
                                        platform::ModuleHandle& hModule);

/// Asks a library whether it can go, and if so frees it and sets `hModule` to 0; otherwise it stays. A 0
/// handle does nothing. Raises as above when the library lacks the export. All objects of the library are to
/// be released before.
void UnloadDll(platform::ModuleHandle& hModule);

} // namespace kestrelmoor
