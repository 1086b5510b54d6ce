#pragma once

#include "runtime/text.h"

namespace kestrelmoor::platform {

/// The full path of a file in the system's own folder; empty when the system can't name that folder.
String InSystemFolder(StringView file_name);

} // namespace kestrelmoor::platform
