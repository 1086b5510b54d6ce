#pragma once

#include "directory_backend.h"

#include <windows.h>

#include <oaidl.h>

namespace kestrelmoor::stand_in {

/// The automation object of a user that was bound, with one reference.
IDispatch* MakeUserObject(std::unique_ptr<DirectoryEntry> entry);

} // namespace kestrelmoor::stand_in
