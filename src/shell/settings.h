#pragma once

#include <cstdint>

namespace kestrelmoor {

/// The stored language number, 0 for none. Apart from the other settings because it is needed before the
/// command line is read.
std::int16_t LoadLangID();

/// Fills the settings from the registry; what is missing or of the wrong kind has its default.
void LoadSettings();

/// Stores the settings; a value that is its default is removed instead. Each value that can't be written
/// costs a box with the reason, and the others are written all the same.
void SaveSettings();

/// Bit number `nIndex`, counted from 0, of `gActiveBits`. Raises 9 beyond its end.
bool GetBit(std::int32_t nIndex);
void SetBit(std::int32_t nIndex, bool bValue);

inline constexpr std::int32_t kDefaultReminderTime = 1209600; ///< 14 days

} // namespace kestrelmoor
