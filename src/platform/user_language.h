#pragma once

#include <cstdint>

namespace kestrelmoor::platform {

/// The language of the user's interface, as a Windows language identifier. 0 where the platform can't tell;
/// the call is there from Windows 2000 on and is bound by name.
std::uint16_t GetUserDefaultUILanguage();

/// The thread's locale; its low 16 bits are a language identifier.
std::uint32_t GetThreadLocale();

} // namespace kestrelmoor::platform
