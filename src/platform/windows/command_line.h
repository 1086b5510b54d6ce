#pragma once

#include "runtime/text.h"

namespace kestrelmoor::platform {

/// What stands behind the program's own name in a command line, without the blanks and tabs ahead of it.
/// The name ends at the first blank that lies outside of quotation marks.
StringView ArgumentsBehindName(StringView command_line);

} // namespace kestrelmoor::platform
