#pragma once

#include "platform/practice/world/directory.h"

#include <memory>
#include <string>
#include <string_view>

namespace kestrelmoor::stand_in {

/// A user's object that was bound. Each operation raises practice::DirectoryFailure.
class DirectoryEntry {
  public:
    virtual ~DirectoryEntry() = default;

    /// A member of practice::directory_member.
    virtual Variant Value(std::string_view member) = 0;

    virtual void ChangePassword(const String& old_password, const String& new_password) = 0;
};

/// What stands behind the provider.
class DirectoryBackend {
  public:
    virtual ~DirectoryBackend() = default;

    /// Binds "WinNT://NAME/user,user". Raises practice::DirectoryFailure.
    virtual std::unique_ptr<DirectoryEntry> Bind(const String& path) = 0;
};

/// The back end that the environment of the process asks for, chosen at the first call and kept, by the same
/// variables as the stand-in of the network API. Without one, no path can be read.
DirectoryBackend& Backend();

} // namespace kestrelmoor::stand_in
