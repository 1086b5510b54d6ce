#pragma once

#include "platform/call_result.h"
#include "platform/modules.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

inline constexpr std::uint32_t kFormatFromSystem = 0x1000;
inline constexpr std::uint32_t kFormatIgnoreInserts = 0x200;
inline constexpr std::uint32_t kFormatFromModule = 0x800;

/// The system's words for a code, with language 0 and no arguments, into a buffer of `nCharacters` that is
/// full of NUL before. The value is the number of characters, 0 for a failure; `sBuffer` comes back whole,
/// with what a failed call may have left in it.
CallResult<std::uint32_t> FormatMessageW(std::uint32_t nFlags, ModuleHandle hModule, std::uint32_t nCode,
                                         std::size_t nCharacters, String& sBuffer);

} // namespace kestrelmoor::platform
