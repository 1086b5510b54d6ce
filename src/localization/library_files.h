#pragma once

#include "runtime/text.h"

namespace kestrelmoor {

// Where language libraries are looked for.

/// Serves any language that has no library of its own.
inline constexpr char16_t kDefaultLibrary[] = u"default.loc";

/// The key of the local machine that names files for languages: each value's name is a language number.
inline constexpr char16_t kLocFiles[] = u"Software\\Orvane\\Kestrelmoor\\LocFiles";

/// The path of a file that lies beside the program.
String InProgramFolder(const String& sName);

/// A file that can't be looked at counts as a directory: neither is a library.
bool IsFile(const String& sPath);

} // namespace kestrelmoor
