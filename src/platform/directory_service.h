#pragma once

#include "runtime/owned.h"
#include "runtime/text.h"
#include "runtime/variant.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// The directory service: objects that are reached by a path and used by the names of their members. Every
/// call blocks until the service answers. A failure is raised with its number, a denied access as 70, and
/// the description that the service gave, else the system's words for the number; a member that raised an
/// exception of its own has that exception's number and description.

struct DirectoryObjectTraits {
    using Value = std::uintptr_t;
    static constexpr Value kNone = 0;
    static void Release(Value object) noexcept;
};
using OwnedDirectoryObject = Owned<DirectoryObjectTraits>;

/// GetObject: the object that a path names, "WinNT://ARCHIVE/user,user".
OwnedDirectoryObject BindObject(const String& sPath);

/// The method `Get` of a user's object: one attribute by name.
Variant GetAttribute(const OwnedDirectoryObject& user, const String& sName);

/// A property of a user's object, by name.
Variant GetProperty(const OwnedDirectoryObject& user, const String& sName);

/// The method `ChangePassword` of a user's object.
void ChangePassword(const OwnedDirectoryObject& user, const String& sOldPass, const String& sNewPass);

} // namespace kestrelmoor::platform
