#pragma once

#include "platform/practice/world/world.h"
#include "tests/fuzz/sessions/session_bytes.h"

namespace kestrelmoor::fuzz {

/// The text that every password has in it, and nothing else: found elsewhere, a password has got there.
inline constexpr char16_t kSecretMark[] = u"XYZZY";

inline constexpr char16_t kOldPassword[] = u"Old-XYZZY-1"; ///< that of every account at the start

/// What a start stands in, as far as the checks behind it need to know.
struct StartedWorld {
    bool has_faults = false;    ///< some call will fail
    bool hides_exports = false; ///< one of them looks for a library's export
    bool has_directory = false; ///< at any time
};

/// Sets a world to the stock one and changes it by the bytes: accounts, network, registry, look of the
/// screen, files, the command line, and calls that will fail.
StartedWorld MakeWorld(practice::World& world, SessionBytes& bytes);

} // namespace kestrelmoor::fuzz
