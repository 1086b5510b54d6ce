#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

inline constexpr std::uint32_t kBoxYesNo = 4;
inline constexpr std::uint32_t kBoxExclamation = 48;
inline constexpr std::uint32_t kBoxInformation = 64;
inline constexpr std::uint32_t kBoxSystemModal = 0x1000; ///< on top of all windows
inline constexpr std::uint32_t kBoxSetForeground = 0x10000;

inline constexpr int kBoxOk = 1;
inline constexpr int kBoxYes = 6;
inline constexpr int kBoxNo = 7;

/// A message box in front of the active form, or of nothing where there is none. Events of other windows
/// are handled while it is up. Returns the button pressed.
int MessageBoxW(const String& sText, std::uint32_t nStyle, const String& sTitle);

} // namespace kestrelmoor::platform
